// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Heading.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <memory>

namespace tarvomime::tool {

namespace {

struct HeadersOptions
{
    MailInputs inputs;
    bool raw = false;
    bool unfold = false;
    std::string color;
};

// Without the line ends of folds; the white space behind them stays (RFC 5322, section 2.2.3).
QByteArray unfolded(const QCString& body)
{
    QByteArray out = body;
    return out.replace("\r", "").replace("\n", "");
}

void printFields(const EMAIL_Header& header, bool unfold, const Style& style, Session& session)
{
    for (const EMAIL_Field* field : header.mFields) {
        const QByteArray body = unfold ? unfolded(field->mBody) : QByteArray(field->mBody);
        session.print(style.label(printableLine(field->mName.view()) + ':') + ' ' +
                      printableText({body.constData(), static_cast<std::size_t>(body.size())}) +
                      '\n');
    }
}

void printHeaders(const HeadersOptions& options, Session& session)
{
    const Style style(options.color);
    MailSource source(options.inputs, session);
    Heading heading(session, style);
    MailPlace place;
    while (source.next(place)) {
        const Mail mail(place, {});
        if (options.raw) {
            session.print(mail.header().mString);
            continue;
        }
        heading.print(source, mail);
        printFields(mail.header(), options.unfold, style, session);
    }
}

} // namespace

void addHeaders(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<HeadersOptions>();
    Arguments arguments(
        tool, "headers", "Print the header fields of messages",
        "Fields are printed as they are stored, folds included; control characters\n"
        "are shown as escapes.\n"
        "\n"
        "Example:\n"
        "  tarvomime headers --unfold mail.eml");
    addMailInputs(arguments, options->inputs);
    arguments.flag("--raw", options->raw, "Print the header's bytes as is");
    arguments.flag("--unfold", options->unfold, "Print each field on one line");
    arguments.exclude("--raw", "--unfold");
    addColor(arguments, options->color);
    arguments.run([options, &session] { printHeaders(*options, session); });
}

} // namespace tarvomime::tool
