// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Mail.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/Style.h"
#include "tools/tarvomime/UnifiedDiff.h"
#include "utility/EMAIL_Message.h"

#include <QTemporaryFile>
#include <memory>

namespace tarvomime::tool {

namespace {

struct DiffOptions
{
    MailInputs inputs;
    bool lineEnds = false;
    bool strict = false;
    std::string color = "auto";

    LineEnds ends() const { return lineEnds ? LineEnds::Compared : LineEnds::Ignored; }
};

QByteArray rangeOf(int start, int count)
{
    return QByteArray::number(start) + (count == 1 ? "" : "," + QByteArray::number(count));
}

QByteArray painted(const DiffLine& line, LineEnds ends, const Style& style)
{
    // Line ends are seen as "\r\n" where they count; otherwise there are none, and tabs are tabs.
    const QByteArray text =
        ends == LineEnds::Compared ? printableLine(line.text) : printableText(line.text);
    switch (line.kind) {
    case DiffLine::Kind::Removed:
        return style.removed('-' + text);
    case DiffLine::Kind::Added:
        return style.added('+' + text);
    case DiffLine::Kind::Both:
        break;
    }
    return ' ' + text;
}

void printHunk(const DiffHunk& hunk, LineEnds ends, const Style& style, Session& session)
{
    session.print(style.label("@@ -" + rangeOf(hunk.before, hunk.beforeCount) + " +" +
                              rangeOf(hunk.after, hunk.afterCount) + " @@") +
                  '\n');
    for (const DiffLine& line : hunk.lines)
        session.print(painted(line, ends, style) + '\n');
}

// Parses and writes the message. False where that fails.
bool writeAgain(const QByteArray& bytes, QTemporaryFile& again)
{
    EMAIL_Message message;
    message.setMessage(QCString::fromBytes(bytes));
    message.parse();
    return again.open() && message.assemble(&again) == 0 && again.flush();
}

void compare(const QByteArray& before, const QByteArray& after, const std::string& name,
             const DiffOptions& options, Session& session)
{
    const Style style(options.color);
    const std::vector<DiffHunk> hunks =
        unifiedDiff({before.constData(), std::size_t(before.size())},
                    {after.constData(), std::size_t(after.size())}, options.ends());
    if (hunks.empty())
        return;
    const QByteArray shown = printableLine(name);
    session.print(style.heading("--- " + shown) + '\n' +
                  style.heading("+++ " + shown + " (parsed and written again)") + '\n');
    for (const DiffHunk& hunk : hunks)
        printHunk(hunk, options.ends(), style, session);
    if (options.strict)
        session.setFound();
}

void diffMessage(const MailPlace& place, const DiffOptions& options, Session& session)
{
    const QByteArray before = bytesAt(place);
    QTemporaryFile again;
    if (!writeAgain(before, again)) {
        session.complain(place.name(),
                         "cannot be written again: " + again.errorString().toStdString());
        return;
    }
    again.seek(0);
    compare(before, again.readAll(), place.name(), options, session);
}

void diff(const DiffOptions& options, Session& session)
{
    MailSource source(options.inputs, session);
    MailPlace place;
    while (source.next(place))
        diffMessage(place, options, session);
}

} // namespace

void addDiff(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<DiffOptions>();
    Arguments arguments(
        tool, "diff", "Show what parsing and writing messages would change",
        "The difference between a message and what 'reassemble' makes of it, line by\n"
        "line: '-' is taken away, '+' is new. Nothing is printed for a message that stays\n"
        "as it is. Line ends become CR LF in headers, which is not shown unless wished.\n"
        "\n"
        "Example:\n"
        "  tarvomime diff mail.eml\n"
        "  tarvomime diff --strict *.eml >/dev/null || echo 'some would change'");
    addMailInputs(arguments, options->inputs);
    arguments.flag("--line-ends", options->lineEnds, "Compare the ends of lines too");
    arguments.flag("--strict", options->strict, "Exit with status 3 when there is a difference");
    addColor(arguments, options->color);
    arguments.run([options, &session] { diff(*options, session); });
}

} // namespace tarvomime::tool
