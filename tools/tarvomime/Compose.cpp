// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/BodyOptions.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Envelope.h"
#include "tools/tarvomime/MessageWriter.h"
#include "tools/tarvomime/Session.h"
#include "utility/EMAIL_MIME.h"

#include <memory>

namespace tarvomime::tool {

namespace {

struct ComposeOptions
{
    Envelope envelope;
    BodyOptions body;
};

void compose(const ComposeOptions& options, Session& session)
{
    requireRecipient(options.envelope);
    NewBody body;
    body.charset = options.envelope.charset;
    if (!readBody(options.body, body, session))
        return;
    EMAIL_MIME message;
    setNewBody(body, message);
    applyEnvelope(options.envelope, message);
    writeNewMessage(message, options.envelope.out, expectedSize(body), session);
}

} // namespace

void addCompose(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ComposeOptions>();
    Arguments arguments(
        tool, "compose", "Write a new message",
        "Text flows, and is quoted-printable or base64 where it is not plain ASCII or a\n"
        "line is too long. Without --text it is made of the HTML, in which \"cid:NAME\" is\n"
        "an inline file; in NAME, what is no letter, digit, '.' or '-' is '_'. Names with\n"
        "commas stand in quotes: '\"Okafor, Mira\" <mira@a.example>'. Attachments stay in\n"
        "their files until the message is written. Values with line breaks are refused:\n"
        "they would bring header fields of their own.\n"
        "\n"
        "Example:\n"
        "  tarvomime compose --from 'Mira <mira@a.example>' --to joern@b.example \\\n"
        "    --subject 'Fotos' --text 'Anbei.' --attach 1.jpg 2.jpg --out mail.eml\n"
        "  tarvomime compose --from mira@a.example --to joern@b.example \\\n"
        "    --html letter.html --inline map.png --header 'X-Project: garden'");
    addEnvelope(arguments, options->envelope);
    addRecipients(arguments, options->envelope);
    addInReplyTo(arguments, options->envelope);
    addTextOption(arguments, options->body);
    addHtmlOptions(arguments, options->body);
    addAttachOption(arguments, options->body);
    arguments.charset(options->envelope.charset);
    arguments.run([options, &session] { compose(*options, session); });
}

} // namespace tarvomime::tool
