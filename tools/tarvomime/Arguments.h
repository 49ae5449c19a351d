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
/// longer than any command does, even precompiled, for it brings constants of its own into every
/// file that sees it: those that include this header only are spared it.
class Arguments
{
public:
    /// What is wrong with a value; an empty text when nothing is.
    using Check = std::function<std::string(const std::string&)>;

    /// `description` is a sentence for the list of commands; `footer`, a text with an example, ends
    /// the command's help.
    Arguments(CLI::App& tool, const std::string& name, const std::string& description,
              const std::string& footer);
    /// A command of the command `parent`.
    Arguments(const Arguments& parent, const std::string& name, const std::string& description,
              const std::string& footer);

    // What stands behind the command without a name: one or more values, exactly one, at most one,
    // one of `choices`.
    void values(const std::string& name, std::vector<std::string>& values, const std::string& help);
    void value(const std::string& name, std::string& value, const std::string& help);
    void value(const std::string& name, std::vector<std::string>& value, const std::string& help);
    void optionalValue(const std::string& name, std::string& value, const std::string& help);
    void chosenValue(const std::string& name, std::string& value,
                     const std::vector<std::string>& choices, const std::string& help);

    void flag(const std::string& name, bool& value, const std::string& help);
    void option(const std::string& name, std::string& value, const std::string& type,
                const std::string& help, const Check& check = {});
    void requiredOption(const std::string& name, std::string& value, const std::string& type,
                        const std::string& help, const Check& check = {});
    /// May be repeated, with one value each time.
    void repeatedOption(const std::string& name, std::vector<std::string>& values,
                        const std::string& type, const std::string& help, const Check& check);
    /// Takes all the words up to the next option.
    void listOption(const std::string& name, std::vector<std::string>& values,
                    const std::string& type, const std::string& help, const Check& check);
    /// A whole number of at least `least`.
    void number(const std::string& name, qint64& value, qint64 least, const std::string& help);
    void choice(const std::string& name, std::string& value,
                const std::vector<std::string>& choices, const std::string& help);
    /// The two options cannot be given together.
    void exclude(const std::string& one, const std::string& other);
    /// The option `one` cannot be given without `other`.
    void need(const std::string& one, const std::string& other);
    /// "--charset NAME", any charset that text can be read in; `charset` stays empty without it.
    void charset(std::string& charset);
    /// "--charset NAME" for text that names none; `charset` holds its number, and the default.
    void charset(int& charset);
    /// "--json".
    void json(bool& json);
    /// "--out FILE"; standard output without it.
    void out(std::string& out);

    void requireCommand();
    void run(const std::function<void()>& command);

    /// Ends a command that has begun to run as if the options had been required.
    [[noreturn]] static void refuseWithout(const std::string& options);

private:
    CLI::App& mCommand;
};

} // namespace tarvomime::tool
