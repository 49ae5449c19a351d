// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace man_page_test {

namespace {

// The page without its markup, as far as names of commands and options go.
QString manPage()
{
    QFile file(TARVOMIME_SOURCE_DIR "/docs/tarvomime.1");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll()).replace("\\-", "-").replace("\\(aq", "'");
}

QStringList allIn(const QString& text, const char* pattern)
{
    QStringList found;
    QRegularExpressionMatchIterator matches =
        QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured(1));
    return found;
}

QStringList commands(const ToolRunner& tool)
{
    const QString help = QString::fromUtf8(tool.run({"--help"}).out);
    QStringList names = allIn(help.section("Commands:", 1), "^  ([a-z]+) ");
    names.removeAll("help");
    return names;
}

QSet<QString> optionsIn(const QString& text)
{
    const QStringList options = allIn(text, "(--[a-z][-a-z]*)\\b");
    return QSet<QString>(options.begin(), options.end());
}

// What stands for all commands, or all of one kind.
QString generalOptions(const QString& page)
{
    return page.section(".SH OPTIONS", 1).section(".SH", 0, 0) +
           page.section(".SS Options of new messages", 1).section(".SS", 0, 0);
}

// The command lines that the page and the help of the commands show.
QStringList examples(const ToolRunner& tool)
{
    QStringList lines = allIn(manPage(), "^\\.B (tarvomime .*)$");
    for (const QString& command : commands(tool)) {
        const QString help = QString::fromUtf8(tool.run({command, "--help"}).out);
        lines += allIn(QString(help).remove("\\\n"), "^  (tarvomime .*)$");
    }
    return lines;
}

// What stands below the command's name in the page, up to the next command.
QString entryOf(const QString& page, const QString& command, const QStringList& all)
{
    const auto start =
        QRegularExpression("^\\.BI? \"?" + command + "\\b|^\\.BR.*[ \"]" + command + "\\b",
                           QRegularExpression::MultilineOption)
            .match(page)
            .capturedStart();
    if (start < 0)
        return {};
    const auto end = QRegularExpression("^\\.S[HS] |^\\.BI? \"?(?:" + all.join('|') + ")\\b",
                                        QRegularExpression::MultilineOption)
                         .match(page, start + 5)
                         .capturedStart();
    return page.mid(start, end - start);
}

} // namespace

TEST(ManPage, HoldsEveryOptionOfTheHelp)
{
    const ToolRunner tool;
    const QString page = manPage();
    const QString general = generalOptions(page);
    const QStringList all = commands(tool);
    ASSERT_GT(all.size(), 10);
    for (const QString& command : all) {
        const QString entry = entryOf(page, command, all);
        EXPECT_FALSE(entry.isEmpty()) << command.toStdString() << " has no entry";
        const QSet<QString> described = optionsIn(entry + general);
        for (const QString& option :
             optionsIn(QString::fromUtf8(tool.run({command, "--help"}).out)))
            EXPECT_TRUE(described.contains(option))
                << command.toStdString() << ": " << option.toStdString();
    }
}

TEST(ManPage, HoldsNoOptionThatTheToolHasNot)
{
    const ToolRunner tool;
    QSet<QString> known = optionsIn(QString::fromUtf8(tool.run({"--help"}).out));
    for (const QString& command : commands(tool))
        known += optionsIn(QString::fromUtf8(tool.run({command, "--help"}).out));
    for (const QString& option : optionsIn(manPage()))
        EXPECT_TRUE(known.contains(option)) << option.toStdString();
}

// What means the same everywhere is shown once.
TEST(ManPage, ShowsEveryOptionInAnExample)
{
    const ToolRunner tool;
    const QSet<QString> general = optionsIn(generalOptions(manPage()));
    const QStringList lines = examples(tool);
    for (const QString& command : commands(tool)) {
        const QStringList own = lines.filter("tarvomime " + command + ' ');
        const QString help = QString::fromUtf8(tool.run({command, "--help"}).out);
        for (const QString& option : optionsIn(help.section("Options:", 1))) {
            const QStringList& shown = general.contains(option) ? lines : own;
            EXPECT_TRUE(optionsIn(shown.join('\n')).contains(option))
                << command.toStdString() << ": " << option.toStdString();
        }
    }
}

TEST(ManPage, HasAnExampleOfEveryCommand)
{
    const ToolRunner tool;
    const QString examples = manPage().section(".SH EXAMPLES", 1);
    for (const QString& command : commands(tool))
        EXPECT_TRUE(examples.contains("tarvomime " + command + " ")) << command.toStdString();
}

} // namespace man_page_test
