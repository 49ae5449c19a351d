// SPDX-License-Identifier: MIT
#include "extra/HtmlText.h"
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Heading.h"

#include <memory>

namespace tarvomime::tool {

namespace {

struct TextOptions
{
    MailInputs inputs;
    std::string part;
    bool html = false;
};

Result<QString> textOfPart(const ContentPart& part, bool html, const QByteArray& fallback)
{
    if (!part.type.startsWith("text/") && !isHtmlPart(part))
        return Failure{QStringLiteral("the part is %1, no text; 'extract' writes it into a file")
                           .arg(QString::fromUtf8(part.type))};
    const Result<ReadText> read = partText(part, fallback);
    if (!read)
        return read.failure();
    return isHtmlPart(part) && !html ? textFromHtml(read->text) : read->text;
}

Result<QString> wantedText(Mail& mail, const TextOptions& options)
{
    const MessageContent& content = mail.content();
    if (options.part.empty())
        return options.html ? shownHtml(content, 0, mail.fallback())
                            : shownText(content, 0, mail.fallback());
    const int index = findPart(content, options.part.c_str());
    if (index < 0)
        return Failure{"has no part numbered " + QString::fromLatin1(options.part.c_str())};
    return textOfPart(content.parts[index], options.html, mail.fallback());
}

void printText(Mail& mail, const TextOptions& options, Session& session)
{
    const Result<QString> text = wantedText(mail, options);
    if (!text)
        session.complain(mail.name(), text.reason().toStdString());
    else if (text->isEmpty())
        session.complain(mail.name(), "has no message text");
    else
        session.print(printableText(*text) + (text->endsWith('\n') ? "" : "\n"));
}

void printTexts(const TextOptions& options, Session& session)
{
    const Style style("never");
    MailSource source(options.inputs, session);
    Heading heading(session, style);
    MailPlace place;
    while (source.next(place)) {
        Mail mail(place, options.inputs.charset);
        heading.print(source, mail);
        printText(mail, options, session);
    }
}

} // namespace

void addText(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<TextOptions>();
    Arguments arguments(
        tool, "text", "Print the text of messages",
        "The text is the plain one where the sender offers it, else made of HTML. It is\n"
        "decoded, printed in utf-8 with plain line feeds, and control characters in it are\n"
        "shown as escapes.\n"
        "\n"
        "Example:\n"
        "  tarvomime text mail.eml --charset koi8-u\n"
        "  tarvomime text mail.eml --html > mail.html\n"
        "  tarvomime text mail.eml --part=1.2");
    addMailInputs(arguments, options->inputs);
    arguments.charset(options->inputs.charset);
    arguments.option("--part", options->part, "NUMBER", "The text of this part only");
    arguments.flag("--html", options->html,
                   "HTML: the sender's as it stands, or else made of plain text");
    arguments.run([options, &session] { printTexts(*options, session); });
}

} // namespace tarvomime::tool
