// SPDX-License-Identifier: MIT
#include "extra/Reply.h"

#include "extra/AddressList.h"
#include "extra/EncodedWords.h"
#include "extra/Quoting.h"
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/BodyOptions.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Envelope.h"
#include "tools/tarvomime/MessageWriter.h"
#include "tools/tarvomime/Original.h"
#include "tools/tarvomime/Session.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <memory>

namespace tarvomime::tool {

namespace {

struct ReplyCommand
{
    MailInputs original;
    Envelope envelope;
    BodyOptions body;
    std::vector<std::string> own;
    bool toAll = false;
    bool toList = false;
    bool noQuote = false;
};

// "On Mon, 3 Jun 2024 10:15:00 +0200, Mira wrote:", as far as the message says so.
QString attribution(const EMAIL_Header& original)
{
    const EMAIL_Field* date = original.getField("Date");
    const Mailbox writer = readAddressList(original, "From").value(0);
    const QString who = oneLine(writer.name.isEmpty() ? writer.address : writer.name);
    const QString when = date == nullptr ? QString() : oneLine(decodedWords(date->mBody));
    return (when.isEmpty() ? QString() : "On " + when + ", ") +
           (who.isEmpty() ? QStringLiteral("somebody") : who) + " wrote:";
}

bool addQuote(const Original& original, QString& text, Session& session)
{
    QString quoted;
    if (!original.readText(quoted, session))
        return false;
    if (quoted.trimmed().isEmpty())
        return true;
    if (!text.isEmpty())
        text += text.endsWith('\n') ? "\n" : "\n\n";
    text += attribution(original.header()) + '\n' + quotedText(quoted) + '\n';
    return true;
}

ReplyOptions replyOptions(const ReplyCommand& command)
{
    ReplyOptions options;
    options.from = senderOf(command.envelope);
    options.kind = command.toAll    ? ReplyKind::All
                   : command.toList ? ReplyKind::List
                                    : ReplyKind::Sender;
    for (const Mailbox& mailbox : peopleIn(command.own))
        options.ownAddresses.append(mailbox.address);
    return options;
}

// The header; false after a complaint.
bool address(const ReplyCommand& command, const Original& original, EMAIL_MIME& reply,
             Session& session)
{
    const Result<void> started = startReply(original.header(), replyOptions(command), reply);
    if (!started) {
        session.complain(original.name(), started.reason().toStdString());
        return false;
    }
    applyAdditions(command.envelope, reply);
    const bool hasReader = reply.getHeader()->getField("Cc") != nullptr ||
                           !readAddressList(*reply.getHeader(), "To").isEmpty();
    if (!hasReader)
        session.complain(original.name(), "names nobody who could be answered");
    return hasReader;
}

void reply(const ReplyCommand& command, Session& session)
{
    const Original original(command.original, session);
    NewBody body;
    body.text = "";
    if (!original.isOpen() || !readBody(command.body, body, session) ||
        !(command.noQuote || addQuote(original, body.text, session)))
        return;
    EMAIL_MIME message;
    setNewBody(body, message);
    if (address(command, original, message, session))
        writeNewMessage(message, command.envelope.out, expectedSize(body), session);
}

} // namespace

void addReply(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ReplyCommand>();
    Arguments arguments(
        tool, "reply", "Write an answer to a message",
        "The answer goes to whom the message wants answers sent, is tied to it by\n"
        "In-Reply-To and References, and quotes its text below yours. The answer to a\n"
        "message of your own goes to the people that it went to. Each gets it once, and\n"
        "--from and --own never do.\n"
        "\n"
        "Example:\n"
        "  tarvomime reply mail.eml --from mira@a.example --text 'Gern!' --out reply.eml\n"
        "  tarvomime reply mail.eml --all --from mira@a.example --own mo@b.example \\\n"
        "    --text - <answer.txt >reply.eml");
    addMessage(arguments, options->original);
    addEnvelope(arguments, options->envelope);
    arguments.flag("--all", options->toAll, "Answer to all who got the message too");
    arguments.flag("--list", options->toList, "Answer to the mailing list that it came over");
    arguments.exclude("--list", "--all");
    addAddresses(arguments, "--own", options->own,
                 "A further address of yours, not to be answered; may be repeated");
    arguments.flag("--no-quote", options->noQuote, "Leave the text of the message out");
    addTextOption(arguments, options->body);
    addAttachOption(arguments, options->body);
    arguments.run([options, &session] { reply(*options, session); });
}

} // namespace tarvomime::tool
