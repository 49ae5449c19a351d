// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Tool.h"

#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Session.h"
#include "utility/EMAIL_Util.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <sstream>

namespace tarvomime::tool {

namespace {

constexpr const char* kVersion = "tarvomime " TARVOMIME_VERSION;

constexpr const char* kFooter =
    "Exit status: 0 when all went well, 1 when a file failed (the others are still\n"
    "worked on), 2 for wrong usage, 3 for findings of 'lint --strict', 130 after Ctrl-C.\n"
    "\n"
    "'tarvomime COMMAND --help' explains a command and shows an example.";

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
    addSendable(tool, session);
    addCompose(tool, session);
    addReply(tool, session);
    addForward(tool, session);
    addInvite(tool, session);
    addEncode(tool, session);
    addDecode(tool, session);
    addWords(tool, session);
}

/// CLI11 reads an argument like "[a,b]" as a list of values, and there are mail folders called
/// "[Gmail]": behind a closing bracket stands this mark until CLI11 is done with the argument.
constexpr char kBracketMark = '\x01';

std::vector<std::string> markedArguments(int argumentCount, const char* const* arguments)
{
    // CLI11 takes its arguments from the end.
    std::vector<std::string> marked;
    for (int i = argumentCount - 1; i > 0; --i) {
        std::string argument = arguments[i];
        if (!argument.empty() && argument.back() == ']')
            argument += kBracketMark;
        marked.push_back(std::move(argument));
    }
    return marked;
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

/// Help and version go to standard output; they end the parsing like a mistake does.
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

int refuseCommandLine(const CLI::App& tool, const CLI::ParseError& mistake, Session& session)
{
    session.refuse(mistake.what());
    std::cerr << "Try '" << commandLineOf(tool) << " --help'." << std::endl;
    return session.finish();
}

} // namespace

CLI::App* addCommand(CLI::App& tool, const std::string& name, const std::string& description,
                     const std::string& footer)
{
    CLI::App* command = tool.add_subcommand(name, description);
    command->set_version_flag("--version", kVersion, "Print the version and exit");
    command->footer(footer);
    command->group("Commands");
    return command;
}

CLI::Option* addFiles(CLI::App& command, std::vector<std::string>& files)
{
    return command.add_option("FILE", files, "Message files")->required()->type_name("");
}

CLI::Option* addFile(CLI::App& command, std::string& file)
{
    return command.add_option("FILE", file, "Message file")->required()->type_name("");
}

CLI::Option* addOut(CLI::App& command, std::string& out)
{
    return command.add_option("--out", out, "Write to this file instead of standard output")
        ->type_name("FILE");
}

CLI::Option* addJson(CLI::App& command, bool& json)
{
    return command.add_flag("--json", json, "Print JSON, for programs");
}

CLI::Option* addCharset(CLI::App& command, int& charset)
{
    const auto recognise = [&charset](const std::string& name) {
        charset = EMAIL_Util::charsetStrToEnum(name.c_str());
        return charset == CHARSET_UNKNOWN ? "unknown charset '" + name + "'" : std::string();
    };
    return command
        .add_option("--charset", "Charset of text that does not say its own (default: utf-8)")
        ->type_name("NAME")
        ->check(recognise)
        ->expected(1);
}

int runTool(int argumentCount, const char* const* arguments)
{
    Session session;
    CLI::App tool("Reads, changes and writes Internet mail (RFC 822, MIME).", "tarvomime");
    tool.set_version_flag("--version", kVersion, "Print the version and exit");
    tool.get_formatter()->label("SUBCOMMAND", "COMMAND");
    tool.footer(kFooter);
    tool.require_subcommand(1);
    addCommands(tool, session);
    removeMarks(tool);
    try {
        tool.parse(markedArguments(argumentCount, arguments));
    } catch (const CLI::Success& wish) {
        return answerWithText(tool, wish, session);
    } catch (const CLI::ParseError& mistake) {
        return refuseCommandLine(tool, mistake, session);
    }
    return session.finish();
}

} // namespace tarvomime::tool
