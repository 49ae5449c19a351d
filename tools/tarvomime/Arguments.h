// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tarvomime::tool {

/// One subcommand and what may stand behind it. The parser of command lines takes the compiler
/// longer than most commands do: those that include this header only are spared it.
class Arguments
{
public:
    /// `description` is a sentence for the list of commands; `footer`, a text with an example, ends
    /// the command's help.
    Arguments(CLI::App& tool, const std::string& name, const std::string& description,
              const std::string& footer);

    void values(const std::string& name, std::vector<std::string>& values, const std::string& help);
    void flag(const std::string& name, bool& value, const std::string& help);
    void option(const std::string& name, std::string& value, const std::string& type,
                const std::string& help);
    /// A whole number of at least `least`.
    void number(const std::string& name, qint64& value, qint64 least, const std::string& help);
    void choice(const std::string& name, std::string& value,
                const std::vector<std::string>& choices, const std::string& help);
    /// The two options cannot be given together.
    void exclude(const std::string& one, const std::string& other);
    /// "--charset NAME", any charset that text can be read in; `charset` stays empty without it.
    void charset(std::string& charset);
    /// "--json".
    void json(bool& json);
    void run(const std::function<void()>& command);

private:
    CLI::App& mCommand;
};

} // namespace tarvomime::tool
