// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace tarvomime::tool {

class Session;
struct MailInputs;

// Each adds one subcommand; parsing a command line that names it runs it in `session`.
void addHeaders(CLI::App& tool, Session& session);
void addReassemble(CLI::App& tool, Session& session);
void addDiff(CLI::App& tool, Session& session);
void addEncode(CLI::App& tool, Session& session);
void addDecode(CLI::App& tool, Session& session);
void addWords(CLI::App& tool, Session& session);
void addTree(CLI::App& tool, Session& session);
void addShow(CLI::App& tool, Session& session);
void addText(CLI::App& tool, Session& session);
void addCalendar(CLI::App& tool, Session& session);
void addList(CLI::App& tool, Session& session);
void addExtract(CLI::App& tool, Session& session);
void addCompose(CLI::App& tool, Session& session);
void addReply(CLI::App& tool, Session& session);
void addForward(CLI::App& tool, Session& session);
void addInvite(CLI::App& tool, Session& session);
void addSendable(CLI::App& tool, Session& session);
void addLint(CLI::App& tool, Session& session);

/// What every subcommand is made of: its name, a sentence for the list of commands, and a text with
/// an example that ends its help.
CLI::App* addCommand(CLI::App& tool, const std::string& name, const std::string& description,
                     const std::string& footer);
/// Adds "FILE..." (one or more).
CLI::Option* addFiles(CLI::App& command, std::vector<std::string>& files);
/// Adds "FILE" (exactly one).
CLI::Option* addFile(CLI::App& command, std::string& file);
/// Adds "FILE" (exactly one) and "--message NUMBER", for the one message of it.
void addMessage(CLI::App& command, MailInputs& inputs);
/// Adds an option for a whole number of at least `least`.
void addNumber(CLI::App& command, const std::string& name, qint64& value, qint64 least,
               const std::string& help);
/// Adds "--out FILE"; standard output without it.
CLI::Option* addOut(CLI::App& command, std::string& out);
/// Adds "--json".
CLI::Option* addJson(CLI::App& command, bool& json);
/// Adds "--charset NAME" for text that names none; `charset` holds its number, and the default.
CLI::Option* addCharset(CLI::App& command, int& charset);

} // namespace tarvomime::tool
