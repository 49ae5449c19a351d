// SPDX-License-Identifier: MIT
#include "extra/Reply.h"
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/BodyOptions.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Envelope.h"
#include "tools/tarvomime/MessageWriter.h"
#include "tools/tarvomime/Original.h"
#include "tools/tarvomime/Session.h"

#include <memory>

namespace tarvomime::tool {

namespace {

struct ForwardCommand
{
    MailInputs original;
    Envelope envelope;
    BodyOptions body;
    bool attached = false;
};

// The text below the new one, and the attachments before the new ones. False after a complaint.
bool addInside(const Original& original, NewBody& body, Session& session)
{
    QString text;
    if (!original.readText(text, session))
        return false;
    if (!body.text.isEmpty())
        body.text += body.text.endsWith('\n') ? "\n" : "\n\n";
    body.text += forwardedText(original.header(), text, QStringLiteral("Forwarded message"));
    body.attachments = forwardedAttachments(original.content()) + body.attachments;
    return true;
}

void attachWhole(const Original& original, NewBody& body)
{
    EMAIL_MultiPart part;
    attachMessage(original.bytes(), part);
    body.attachments.prepend(part);
}

void forward(const ForwardCommand& command, Session& session)
{
    requireRecipient(command.envelope);
    const Original original(command.original, session);
    NewBody body;
    if (!original.isOpen() || !readBody(command.body, body, session))
        return;
    if (command.attached)
        attachWhole(original, body);
    else if (!addInside(original, body, session))
        return;
    EMAIL_MIME message;
    setNewBody(body, message);
    ReplyOptions options;
    options.from = senderOf(command.envelope);
    const Result<void> started = startForward(original.header(), options, message);
    if (!started) {
        session.complain(original.name(), started.reason().toStdString());
        return;
    }
    applyRecipients(command.envelope, message);
    applyAdditions(command.envelope, message);
    writeNewMessage(message, command.envelope.out, expectedSize(body), session);
}

} // namespace

void addForward(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ForwardCommand>();
    Arguments arguments(
        tool, "forward", "Write a message that hands another one on",
        "Its text stands below yours and its attachments come along, or the whole message\n"
        "is attached as it is.\n"
        "\n"
        "Example:\n"
        "  tarvomime forward mail.eml --from mira@a.example --to joern@b.example --out fwd.eml\n"
        "  tarvomime forward mail.eml --attached --from mira@a.example --to joern@b.example");
    addMessage(arguments, options->original);
    addEnvelope(arguments, options->envelope);
    addRecipients(arguments, options->envelope);
    arguments.flag("--attached", options->attached, "Attach the message as it is");
    addTextOption(arguments, options->body);
    addAttachOption(arguments, options->body);
    arguments.run([options, &session] { forward(*options, session); });
}

} // namespace tarvomime::tool
