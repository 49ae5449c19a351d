// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "tools/tarvomime/UnifiedDiff.h"
#include "utility/EMAIL_Message.h"

#include <CLI/CLI.hpp>
#include <QTemporaryFile>
#include <memory>

namespace tarvomime::tool {

namespace {

struct DiffOptions
{
    std::vector<std::string> files;
    bool lineEnds = false;
    bool strict = false;
};

QByteArray rangeOf(int start, int count)
{
    return QByteArray::number(start) + (count == 1 ? "" : "," + QByteArray::number(count));
}

void printHunk(const DiffHunk& hunk, LineEnds ends, Session& session)
{
    session.print("@@ -" + rangeOf(hunk.before, hunk.beforeCount) + " +" +
                  rangeOf(hunk.after, hunk.afterCount) + " @@\n");
    for (const DiffLine& line : hunk.lines) {
        const char sign = line.kind == DiffLine::Kind::Both      ? ' '
                          : line.kind == DiffLine::Kind::Removed ? '-'
                                                                 : '+';
        // Line ends are seen as "\\r\\n" where they count; otherwise there are none, and tabs are
        // tabs.
        const bool hasEnd = ends == LineEnds::Compared;
        session.print(sign + (hasEnd ? printableLine(line.text) : printableText(line.text)) + '\n');
    }
}

/// Parses and writes the message. False where that fails.
bool writeAgain(const InputFile& file, QTemporaryFile& again)
{
    EMAIL_Message message;
    parseInMemory(file, message);
    return again.open() && message.assemble(&again) == 0 && again.flush();
}

void compare(const InputFile& before, const InputFile& after, const DiffOptions& options,
             Session& session)
{
    const LineEnds ends = options.lineEnds ? LineEnds::Compared : LineEnds::Ignored;
    const std::vector<DiffHunk> hunks = unifiedDiff(before.bytes(), after.bytes(), ends);
    if (hunks.empty())
        return;
    const QByteArray name = printableLine(before.path());
    session.print("--- " + name + "\n+++ " + name + " (parsed and written again)\n");
    for (const DiffHunk& hunk : hunks)
        printHunk(hunk, ends, session);
    if (options.strict)
        session.setFound();
}

void diffFile(const std::string& path, const DiffOptions& options, Session& session)
{
    const InputFile before(path);
    QTemporaryFile again;
    if (!before.isOpen()) {
        session.complain(path, before.problem());
        return;
    }
    if (!writeAgain(before, again)) {
        session.complain(path, "cannot be written again: " + again.errorString().toStdString());
        return;
    }
    const InputFile after(QFile::encodeName(again.fileName()).toStdString(), EmptyFile::Accepted);
    if (after.isOpen())
        compare(before, after, options, session);
    else
        session.complain(path, after.problem());
}

void diff(const DiffOptions& options, Session& session)
{
    for (const std::string& path : options.files) {
        if (!session.isOutputOpen())
            return;
        diffFile(path, options, session);
    }
}

} // namespace

void addDiff(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<DiffOptions>();
    CLI::App* command = addCommand(
        tool, "diff", "Show what parsing and writing a message would change",
        "The difference between the message and what 'reassemble' makes of it, line by\n"
        "line: '-' is taken away, '+' is new. Nothing is printed for a message that stays\n"
        "as it is. Line ends become CR LF in headers, which is not shown unless wished.\n"
        "\n"
        "Example:\n"
        "  tarvomime diff mail.eml\n"
        "  tarvomime diff --strict *.eml >/dev/null || echo 'some would change'");
    addFiles(*command, options->files);
    command->add_flag("--line-ends", options->lineEnds, "Compare the ends of lines too");
    command->add_flag("--strict", options->strict, "Exit with status 3 when there is a difference");
    command->callback([options, &session] { diff(*options, session); });
}

} // namespace tarvomime::tool
