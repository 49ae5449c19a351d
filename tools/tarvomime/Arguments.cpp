// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"

#include "extra/CharsetText.h"
#include "tools/tarvomime/CharsetNames.h"
#include "tools/tarvomime/Commands.h"
#include "utility/EMAIL_Util.h"

#include <CLI/CLI.hpp>

namespace tarvomime::tool {

namespace {

template <class Value>
CLI::Option* addOption(CLI::App& command, const std::string& name, Value& value,
                       const std::string& type, const std::string& help,
                       const Arguments::Check& check = {})
{
    CLI::Option* option = command.add_option(name, value, help)->type_name(type);
    return check ? option->check(check) : option;
}

} // namespace

Arguments::Arguments(CLI::App& tool, const std::string& name, const std::string& description,
                     const std::string& footer)
    : mCommand(*addCommand(tool, name, description, footer))
{
}

Arguments::Arguments(const Arguments& parent, const std::string& name,
                     const std::string& description, const std::string& footer)
    : Arguments(parent.mCommand, name, description, footer)
{
}

void Arguments::values(const std::string& name, std::vector<std::string>& values,
                       const std::string& help)
{
    addOption(mCommand, name, values, "", help)->required();
}

void Arguments::value(const std::string& name, std::string& value, const std::string& help)
{
    addOption(mCommand, name, value, "", help)->required();
}

void Arguments::value(const std::string& name, std::vector<std::string>& value,
                      const std::string& help)
{
    addOption(mCommand, name, value, "", help)->required()->expected(1);
}

void Arguments::optionalValue(const std::string& name, std::string& value, const std::string& help)
{
    addOption(mCommand, name, value, "", help);
}

void Arguments::chosenValue(const std::string& name, std::string& value,
                            const std::vector<std::string>& choices, const std::string& help)
{
    addOption(mCommand, name, value, "", help)->required()->check(CLI::IsMember(choices));
}

void Arguments::flag(const std::string& name, bool& value, const std::string& help)
{
    mCommand.add_flag(name, value, help);
}

void Arguments::option(const std::string& name, std::string& value, const std::string& type,
                       const std::string& help, const Check& check)
{
    addOption(mCommand, name, value, type, help, check);
}

void Arguments::requiredOption(const std::string& name, std::string& value, const std::string& type,
                               const std::string& help, const Check& check)
{
    addOption(mCommand, name, value, type, help, check)->required();
}

void Arguments::repeatedOption(const std::string& name, std::vector<std::string>& values,
                               const std::string& type, const std::string& help, const Check& check)
{
    addOption(mCommand, name, values, type, help, check)->allow_extra_args(false);
}

void Arguments::listOption(const std::string& name, std::vector<std::string>& values,
                           const std::string& type, const std::string& help, const Check& check)
{
    addOption(mCommand, name, values, type, help, check);
}

void Arguments::number(const std::string& name, qint64& value, qint64 least,
                       const std::string& help)
{
    // A range of CLI11 would tell people the largest number that a computer holds.
    const auto recognise = [least](const std::string& text) {
        bool isNumber = false;
        const qint64 number = QByteArray::fromStdString(text).toLongLong(&isNumber);
        return isNumber && number >= least
                   ? std::string()
                   : "'" + text + "' is no whole number from " + std::to_string(least) + " on";
    };
    addOption(mCommand, name, value, "NUMBER", help, recognise);
}

void Arguments::choice(const std::string& name, std::string& value,
                       const std::vector<std::string>& choices, const std::string& help)
{
    std::string type;
    for (const std::string& choice : choices)
        type += type.empty() ? choice : '|' + choice;
    addOption(mCommand, name, value, type, help)->check(CLI::IsMember(choices));
}

void Arguments::exclude(const std::string& one, const std::string& other)
{
    mCommand.get_option(one)->excludes(mCommand.get_option(other));
}

void Arguments::need(const std::string& one, const std::string& other)
{
    mCommand.get_option(one)->needs(mCommand.get_option(other));
}

void Arguments::charset(std::string& charset)
{
    const auto recognise = [](const std::string& name) {
        return isReadableCharset(name.c_str()) ? std::string() : unknownCharset(name);
    };
    option("--charset", charset, "NAME",
           "Charset of text that does not say its own (default: utf-8, or what it looks like)",
           recognise);
}

void Arguments::charset(int& charset)
{
    const auto recognise = [&charset](const std::string& name) {
        charset = EMAIL_Util::charsetStrToEnum(name.c_str());
        return charset == CHARSET_UNKNOWN ? unknownCharset(name) : std::string();
    };
    mCommand.add_option("--charset", "Charset of text that does not say its own (default: utf-8)")
        ->type_name("NAME")
        ->check(recognise)
        ->expected(1);
}

void Arguments::json(bool& json)
{
    flag("--json", json, "Print JSON, for programs");
}

void Arguments::out(std::string& out)
{
    option("--out", out, "FILE", "Write to this file instead of standard output");
}

void Arguments::requireCommand()
{
    mCommand.require_subcommand(1);
}

void Arguments::run(const std::function<void()>& command)
{
    mCommand.callback(command);
}

void Arguments::refuseWithout(const std::string& options)
{
    throw CLI::RequiredError(options);
}

} // namespace tarvomime::tool
