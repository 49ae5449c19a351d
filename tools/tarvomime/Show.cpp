// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Heading.h"
#include "tools/tarvomime/Pager.h"
#include "tools/tarvomime/TreeDrawing.h"

#include <memory>
#include <optional>

namespace tarvomime::tool {

namespace {

struct ShowOptions
{
    MailInputs inputs;
    std::string color;
    bool noPager = false;
};

QByteArray headerLine(const Style& style, const char* name, const QString& value)
{
    if (value.isEmpty())
        return {};
    return style.label(QByteArray(name) + ':') + ' ' + printableLine(value.simplified()) + '\n';
}

// The header fields that a reader wants to see, decoded.
QByteArray readerHeader(const Mail& mail, const EMAIL_MIME& message, const Style& style)
{
    QByteArray header;
    for (const char* field : {"From", "To", "Cc", "Reply-To"})
        header += headerLine(style, field, mail.people(field));
    for (const char* field : {"Date", "Subject"})
        header += headerLine(style, field, mail.text(field));
    if (!message.isCompleteMessage())
        header += headerLine(style, "Incomplete", "a part of it was left on the server");
    return header;
}

// What others wrote stands back.
QByteArray withFaintQuotes(const QByteArray& text, const Style& style)
{
    QByteArray out;
    for (const QByteArray& line : text.split('\n'))
        out += (line.startsWith('>') ? style.faint(line) : line) + '\n';
    return out;
}

QByteArray textOf(Mail& mail, const Style& style, Session& session)
{
    const Result<QString> text = shownText(mail.content(), 0, mail.fallback());
    if (!text)
        session.complain(mail.name(), text.reason().toStdString());
    if (!text || text->isEmpty())
        return style.faint("(no message text)") + '\n';
    QByteArray printable = printableText(*text);
    if (printable.endsWith('\n'))
        printable.chop(1);
    return withFaintQuotes(printable, style);
}

void show(const ShowOptions& options, Session& session)
{
    const Style style(options.color);
    std::optional<Pager> pager;
    if (!options.noPager)
        pager.emplace(session);
    MailSource source(options.inputs, session);
    Heading heading(session, style);
    MailPlace place;
    while (source.next(place)) {
        Mail mail(place, options.inputs.charset);
        heading.print(source, mail);
        session.print(readerHeader(mail, mail.message(), style) + '\n');
        session.print(drawnTree(mail.content(), mail.fallback(), style) + '\n');
        session.print(textOf(mail, style, session));
    }
}

} // namespace

void addShow(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ShowOptions>();
    Arguments arguments(
        tool, "show", "Show messages: decoded header, part tree and text",
        "The text is the plain one where the sender offers it, else made of HTML. Control\n"
        "characters are shown as escapes. On a terminal, a text that is longer than the\n"
        "screen goes through the pager ($PAGER, or less).\n"
        "\n"
        "Example:\n"
        "  tarvomime show mail.eml\n"
        "  tarvomime show archive.mbox --message 3\n"
        "  ssh host cat Mail/42 | tarvomime show -");
    addMailInputs(arguments, options->inputs);
    arguments.charset(options->inputs.charset);
    addColor(arguments, options->color);
    arguments.flag("--no-pager", options->noPager, "Write to the terminal directly");
    arguments.run([options, &session] { show(*options, session); });
}

} // namespace tarvomime::tool
