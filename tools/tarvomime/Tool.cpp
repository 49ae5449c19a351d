// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Tool.h"

#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Complete.h"
#include "tools/tarvomime/NearestName.h"
#include "tools/tarvomime/Process.h"
#include "tools/tarvomime/Session.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <sstream>

namespace tarvomime::tool {

namespace {

constexpr const char* kVersion = "tarvomime " TARVOMIME_VERSION;

constexpr const char* kFooter =
    "Exit status: 0 when all went well, 1 when a file failed (the others are still\n"
    "worked on), 2 for wrong usage, 3 for what 'lint --strict' and 'diff --strict' found,\n"
    "130 after Ctrl-C, 141 when the reader of the output went away.\n"
    "\n"
    "'tarvomime help COMMAND' explains a command and shows an example.";

void addCommands(CLI::App& tool, Session& session)
{
    addShow(tool, session);
    addTree(tool, session);
    addText(tool, session);
    addCalendar(tool, session);
    addList(tool, session);
    addExtract(tool, session);
    addLint(tool, session);
    addHeaders(tool, session);
    addReassemble(tool, session);
    addDiff(tool, session);
    addSendable(tool, session);
    addCompose(tool, session);
    addReply(tool, session);
    addForward(tool, session);
    addInvite(tool, session);
    addEncode(tool, session);
    addDecode(tool, session);
    addWords(tool, session);
    // It is spelt out before the command line is read.
    tool.add_subcommand("help", "Explain a command")->group("Commands");
}

// CLI11 reads an argument like "[a,b]" as a list of values, and there are mail folders called
// "[Gmail]": behind a closing bracket stands this mark until CLI11 is done with the argument.
constexpr char kBracketMark = '\x01';

// "help COMMAND" is "COMMAND --help".
std::vector<std::string> wordsOf(int argumentCount, const char* const* arguments)
{
    std::vector<std::string> words(arguments + std::min(argumentCount, 1),
                                   arguments + argumentCount);
    if (!words.empty() && words.front() == "help") {
        words.erase(words.begin());
        words.emplace_back("--help");
    }
    return words;
}

std::vector<std::string> markedWords(std::vector<std::string> words)
{
    for (std::string& word : words) {
        if (!word.empty() && word.back() == ']')
            word += kBracketMark;
    }
    // CLI11 takes its arguments from the end.
    std::reverse(words.begin(), words.end());
    return words;
}

std::string withoutMark(std::string argument)
{
    if (!argument.empty() && argument.back() == kBracketMark)
        argument.pop_back();
    return argument;
}

void removeMarks(CLI::App& command)
{
    for (CLI::Option* option : command.get_options())
        option->transform(withoutMark);
    for (CLI::App* subcommand : command.get_subcommands(nullptr))
        removeMarks(*subcommand);
}

// Help and version go to standard output; they end the parsing like a mistake does.
int answerWithText(const CLI::App& tool, const CLI::Success& wish, Session& session)
{
    std::ostringstream answer;
    std::ostringstream unused;
    tool.exit(wish, answer, unused);
    session.print(QByteArray::fromStdString(answer.str()));
    return session.finish();
}

std::string commandLineOf(const CLI::App& tool)
{
    std::string line = "tarvomime";
    const CLI::App* command = &tool;
    while (!command->get_subcommands().empty()) {
        command = command->get_subcommands().front();
        line += ' ' + command->get_name();
    }
    return line;
}

// What is wrong with the name of the command, which CLI11 would call a subcommand; empty where
// nothing is.
std::string commandProblem(const CLI::App& tool, const std::vector<std::string>& words)
{
    if (words.empty())
        return "a command is required";
    if (words.front().rfind('-', 0) == 0) {
        const bool isKnown = tool.get_option_no_throw(words.front()) != nullptr;
        return isKnown ? "" : "'" + words.front() + "' is no option in front of a command";
    }
    std::vector<std::string> names;
    for (const CLI::App* command : tool.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(command->get_name());
    if (std::find(names.begin(), names.end(), words.front()) != names.end())
        return {};
    const std::string nearest = nearestName(words.front(), names);
    return "'" + words.front() + "' is no command" +
           (nearest.empty() ? "" : "; did you mean '" + nearest + "'?");
}

/// Scripts ask this often, and locale, output and commands take longer to set up than all the rest.
int tellVersion()
{
    if (std::puts(kVersion) >= 0 && std::fflush(stdout) == 0)
        return 0;
    const int error = errno;
    Session session;
    session.complainOfOutput(std::strerror(error));
    return session.finish();
}

int refuseCommandLine(const CLI::App& tool, const std::string& reason, Session& session)
{
    session.refuse(reason);
    std::cerr << "Try '" << commandLineOf(tool) << " --help'." << std::endl;
    return session.finish();
}

} // namespace

CLI::App* addCommand(CLI::App& tool, const std::string& name, const std::string& description,
                     const std::string& footer)
{
    CLI::App* command = tool.add_subcommand(name, description);
    command->set_version_flag("-V,--version", kVersion, "Print the version and exit");
    command->footer(footer);
    command->group("Commands");
    return command;
}

int runTool(int argumentCount, const char* const* arguments)
{
    std::vector<std::string> words = wordsOf(argumentCount, arguments);
    if (words.size() == 1 && (words.front() == "--version" || words.front() == "-V"))
        return tellVersion();
    adoptLocale();
    Session session;
    CLI::App tool("Reads, changes and writes Internet mail (RFC 822, MIME).", "tarvomime");
    tool.set_version_flag("-V,--version", kVersion, "Print the version and exit");
    tool.get_formatter()->label("SUBCOMMAND", "COMMAND");
    tool.footer(kFooter);
    tool.require_subcommand(1);
    addCommands(tool, session);
    removeMarks(tool);
    if (!words.empty() && words.front() == kCompleteWord) {
        words.erase(words.begin());
        session.print(completionsFor(tool, words));
        return session.finish();
    }
    const std::string problem = commandProblem(tool, words);
    if (!problem.empty())
        return refuseCommandLine(tool, problem, session);
    try {
        tool.parse(markedWords(words));
    } catch (const CLI::Success& wish) {
        return answerWithText(tool, wish, session);
    } catch (const CLI::ParseError& mistake) {
        return refuseCommandLine(tool, mistake.what(), session);
    }
    return session.finish();
}

} // namespace tarvomime::tool
