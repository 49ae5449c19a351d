// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tarvomime::tool {

class Session;

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

} // namespace tarvomime::tool
