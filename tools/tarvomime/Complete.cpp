// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Complete.h"

#include "extra/AttachmentName.h"
#include "extra/MessageContent.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_Entity.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_Util.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace tarvomime::tool {

namespace {

// What was typed before the last word.
struct Situation
{
    const CLI::App* command = nullptr;
    // The option whose value comes next; null for none.
    const CLI::Option* waiting = nullptr;
    // What is no option behind the command.
    std::vector<std::string> values;
    bool optionsEnded = false;
};

bool beginsWith(const std::string& word, const std::string& start)
{
    return word.compare(0, start.size(), start) == 0;
}

bool takesValue(const CLI::Option& option)
{
    return option.get_items_expected_max() > 0;
}

bool takesMore(const CLI::Option& option)
{
    return option.get_allow_extra_args() && option.get_items_expected_max() > 1;
}

const CLI::Option* optionNamed(const CLI::App& command, const std::string& word)
{
    const std::string name = word.substr(0, word.find('='));
    for (const CLI::Option* option : command.get_options()) {
        if (option->nonpositional() && option->check_name(name))
            return option;
    }
    return nullptr;
}

const CLI::App* commandNamed(const CLI::App& parent, const std::string& name)
{
    for (const CLI::App* command : parent.get_subcommands([](const CLI::App*) { return true; })) {
        if (command->get_name() == name)
            return command;
    }
    return nullptr;
}

void readOption(const std::string& word, Situation& situation)
{
    const CLI::Option* option = optionNamed(*situation.command, word);
    const bool hasValue = word.find('=') != std::string::npos;
    situation.waiting = option != nullptr && takesValue(*option) && !hasValue ? option : nullptr;
}

void readWord(const std::string& word, Situation& situation)
{
    const bool isOption = !situation.optionsEnded && word.size() > 1 && word[0] == '-';
    if (situation.waiting != nullptr && !(isOption && takesMore(*situation.waiting))) {
        if (!takesMore(*situation.waiting))
            situation.waiting = nullptr;
        return;
    }
    situation.waiting = nullptr;
    const CLI::App* command = commandNamed(*situation.command, word);
    if (word == "--" && !situation.optionsEnded)
        situation.optionsEnded = true;
    else if (isOption)
        readOption(word, situation);
    else if (command != nullptr)
        situation.command = command;
    else
        situation.values.push_back(word);
}

// Gathers the words that begin like the one typed.
class Candidates
{
public:
    explicit Candidates(std::string start) : mStart(std::move(start)) {}

    void add(const std::string& word, const std::string& help)
    {
        if (beginsWith(word, mStart))
            mLines += printableLine(word) + '\t' + printableLine(firstLine(help)) + '\n';
    }
    void wish(const char* what) { mWish = what; }
    QByteArray answer() const { return mWish + '\n' + mLines; }

private:
    static std::string firstLine(const std::string& text)
    {
        return text.substr(0, text.find('\n'));
    }

    std::string mStart;
    QByteArray mWish = ":";
    QByteArray mLines;
};

void addCommands(const CLI::App& parent, Candidates& candidates)
{
    for (const CLI::App* command : parent.get_subcommands([](const CLI::App*) { return true; }))
        candidates.add(command->get_name(), command->get_description());
}

void addOptions(const CLI::App& command, Candidates& candidates)
{
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames())
            candidates.add("--" + name, option->get_description());
    }
}

void addCharsets(const std::string& prefix, Candidates& candidates)
{
    for (int charset = CHARSET_US_ASCII; charset <= CHARSET_ISO_8859_15; ++charset) {
        QCString name;
        EMAIL_Util::charsetEnumToStr(charset, name);
        candidates.add(prefix + QByteArray(name).toStdString(), "charset");
    }
}

// The numbers of the parts of the file that was typed, and what they are.
void addParts(const Situation& situation, const std::string& prefix, Candidates& candidates)
{
    const InputFile file(situation.values.empty() ? std::string() : situation.values.front());
    if (!file.isOpen())
        return;
    EMAIL_Message message;
    parseInMemory(file, message);
    const MessageContent content = readContent(message);
    for (int part = 0; part < static_cast<int>(content.parts.size()); ++part) {
        const ContentPart& found = content.parts[part];
        const QString name = attachmentName(*found.entity->mHeader);
        candidates.add(prefix + partNumber(content, part).toStdString(),
                       found.type.toStdString() + ' ' + name.toStdString());
    }
}

// The words of a type such as "auto|always|never".
void addChoices(const std::string& type, const std::string& prefix, Candidates& candidates)
{
    for (std::size_t start = 0; start < type.size();) {
        const std::size_t end = std::min(type.find('|', start), type.size());
        candidates.add(prefix + type.substr(start, end - start), "");
        start = end + 1;
    }
}

// Each value stands behind `prefix`, which is empty or "--option=".
void addValues(const Situation& situation, const CLI::Option& option, const std::string& prefix,
               Candidates& candidates)
{
    // Behind the colon stands what is checked.
    const std::string full = option.get_type_name();
    const std::string type = full.substr(0, full.find(':'));
    if (option.check_lname("charset"))
        addCharsets(prefix, candidates);
    else if (option.check_lname("part"))
        addParts(situation, prefix, candidates);
    else if (type.find('|') != std::string::npos)
        addChoices(type, prefix, candidates);
    else if (beginsWith(type, "FILE"))
        candidates.wish(":files");
    else if (beginsWith(type, "DIR"))
        candidates.wish(":folders");
}

// What may stand behind a command that is neither option nor command.
void addPositionals(const Situation& situation, Candidates& candidates)
{
    std::size_t index = 0;
    for (const CLI::Option* option : situation.command->get_options()) {
        if (option->nonpositional() || (index++ < situation.values.size() && !takesMore(*option)))
            continue;
        if (option->get_name() == "ENCODING")
            addChoices("base64|quoted-printable", {}, candidates);
        else if (option->get_name() != "TEXT")
            candidates.wish(":files");
        return;
    }
}

} // namespace

QByteArray completionsFor(const CLI::App& tool, const std::vector<std::string>& words)
{
    Situation situation;
    situation.command = &tool;
    const std::string last = words.empty() ? std::string() : words.back();
    for (std::size_t i = 0; i + 1 < words.size(); ++i)
        readWord(words[i], situation);
    const bool isOption = !situation.optionsEnded && !last.empty() && last[0] == '-';
    const std::size_t equals = last.find('=');
    Candidates candidates(last);
    if (situation.waiting != nullptr && !(isOption && takesMore(*situation.waiting))) {
        addValues(situation, *situation.waiting, {}, candidates);
    } else if (isOption && equals != std::string::npos) {
        const CLI::Option* option = optionNamed(*situation.command, last);
        if (option != nullptr)
            addValues(situation, *option, last.substr(0, equals + 1), candidates);
    } else if (isOption) {
        addOptions(*situation.command, candidates);
    } else if (!situation.command->get_subcommands([](const CLI::App*) { return true; }).empty()) {
        addCommands(*situation.command, candidates);
    } else if (situation.command->get_name() == "help") {
        addCommands(tool, candidates);
    } else {
        addPositionals(situation, candidates);
    }
    return candidates.answer();
}

} // namespace tarvomime::tool
