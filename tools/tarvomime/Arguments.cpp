// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"

#include "extra/CharsetText.h"
#include "tools/tarvomime/CharsetNames.h"
#include "tools/tarvomime/Commands.h"

#include <CLI/CLI.hpp>

namespace tarvomime::tool {

Arguments::Arguments(CLI::App& tool, const std::string& name, const std::string& description,
                     const std::string& footer)
    : mCommand(*addCommand(tool, name, description, footer))
{
}

void Arguments::values(const std::string& name, std::vector<std::string>& values,
                       const std::string& help)
{
    mCommand.add_option(name, values, help)->required()->type_name("");
}

void Arguments::flag(const std::string& name, bool& value, const std::string& help)
{
    mCommand.add_flag(name, value, help);
}

void Arguments::option(const std::string& name, std::string& value, const std::string& type,
                       const std::string& help)
{
    mCommand.add_option(name, value, help)->type_name(type);
}

void Arguments::number(const std::string& name, qint64& value, qint64 least,
                       const std::string& help)
{
    addNumber(mCommand, name, value, least, help);
}

void Arguments::choice(const std::string& name, std::string& value,
                       const std::vector<std::string>& choices, const std::string& help)
{
    std::string type;
    for (const std::string& choice : choices)
        type += type.empty() ? choice : '|' + choice;
    mCommand.add_option(name, value, help)->type_name(type)->check(CLI::IsMember(choices));
}

void Arguments::exclude(const std::string& one, const std::string& other)
{
    mCommand.get_option(one)->excludes(mCommand.get_option(other));
}

void Arguments::charset(std::string& charset)
{
    const auto recognise = [](const std::string& name) {
        return isReadableCharset(name.c_str()) ? std::string() : unknownCharset(name);
    };
    mCommand
        .add_option("--charset", charset,
                    "Charset of text that does not say its own (default: utf-8, or what it looks "
                    "like)")
        ->type_name("NAME")
        ->check(recognise);
}

void Arguments::json(bool& json)
{
    addJson(mCommand, json);
}

void Arguments::run(const std::function<void()>& command)
{
    mCommand.callback(command);
}

} // namespace tarvomime::tool
