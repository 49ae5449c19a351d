// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Envelope.h"

#include "extra/AddressList.h"
#include "extra/HeaderValue.h"
#include "extra/MessageId.h"
#include "tools/tarvomime/Arguments.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"

#include <algorithm>
#include <ctime>

namespace tarvomime::tool {

namespace {

QString textOf(const std::string& value)
{
    return QString::fromUtf8(value.c_str());
}

std::string addressProblem(const std::string& value)
{
    std::string problem = headerValueProblem(value);
    if (!problem.empty())
        return problem;
    const QList<Mailbox> people = readTypedAddressList(textOf(value));
    if (people.isEmpty())
        return "there is no address";
    return writeAddressList(people).reason().toStdString();
}

std::string senderProblem(const std::string& value)
{
    std::string problem = addressProblem(value);
    if (!problem.empty())
        return problem;
    const QList<Mailbox> people = readTypedAddressList(textOf(value));
    return people.size() == 1 && people.first().isAddress() ? "" : "one address is needed";
}

std::string textProblem(const std::string& value)
{
    std::string problem = headerValueProblem(value);
    return problem.empty() ? writeHeaderValue(textOf(value)).reason().toStdString() : problem;
}

// The fields that have options, or that the message's form decides.
bool isOwnField(const QByteArray& name)
{
    static const char* const own[] = {"from",        "to",          "cc",   "bcc",
                                      "reply-to",    "subject",     "date", "message-id",
                                      "in-reply-to", "mime-version"};
    return name.startsWith("content-") || std::any_of(std::begin(own), std::end(own),
                                                      [&](const char* one) { return name == one; });
}

QByteArray fieldName(const std::string& header)
{
    return QByteArray::fromStdString(header.substr(0, header.find(':')));
}

std::string fieldValue(const std::string& header)
{
    return header.substr(std::min(header.find(':') + 1, header.size()));
}

std::string headerProblem(const std::string& header)
{
    std::string problem = headerValueProblem(header);
    if (!problem.empty())
        return problem;
    if (header.find(':') == std::string::npos)
        return "it has no colon behind the field's name";
    const QByteArray name = fieldName(header);
    const Result<void> checked = checkHeaderName(name);
    if (!checked)
        return checked.reason().toStdString();
    if (isOwnField(name.toLower()))
        return "the field " + name.toStdString() + " is not written by hand";
    if (textOf(fieldValue(header)).trimmed().isEmpty())
        return "it has no value behind the colon";
    return textProblem(fieldValue(header));
}

// Ids are taken with and without their brackets.
QCString messageIdOf(const std::string& value)
{
    const QByteArray id = textOf(value).trimmed().toUtf8();
    return QCString(id.startsWith('<') ? id : '<' + id + '>');
}

std::string messageIdProblem(const std::string& value)
{
    const QCString id = messageIdOf(value);
    const bool isId =
        readMessageIds(id) == QList<QCString>{id} && id.find('@') > 1 && checkRawHeaderValue(id);
    return isId ? "" : "a message id looks like <unique@domain>";
}

void setField(EMAIL_MIME& message, const char* name, const QCString& body)
{
    message.getHeader()->field(name)->mBody = body;
}

void addFields(const Envelope& envelope, EMAIL_MIME& message)
{
    EMAIL_Header* header = message.getHeader();
    for (const std::string& given : envelope.headers) {
        // A field may stand there more than once.
        EMAIL_Field* field = header->createField(QCString(fieldName(given)));
        const QString value = textOf(fieldValue(given)).trimmed();
        field->mBody = writeHeaderValue(value, envelope.charset).valueOr({});
        header->mFields.append(field);
    }
}

QString addressList(const QList<Mailbox>& people)
{
    return writeAddressList(people).valueOr({});
}

} // namespace

std::string headerValueProblem(const std::string& value)
{
    const bool control = std::any_of(value.begin(), value.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return (byte < 0x20 && c != '\t') || byte == 0x7F;
    });
    return control ? "line breaks and control characters do not belong into a header" : "";
}

void addAddresses(Arguments& arguments, const char* name, std::vector<std::string>& values,
                  const char* description)
{
    arguments.repeatedOption(name, values, "ADDRESS", description, addressProblem);
}

void addEnvelope(Arguments& arguments, Envelope& envelope)
{
    arguments.requiredOption("--from", envelope.from, "ADDRESS", "The sender", senderProblem);
    addAddresses(arguments, "--cc", envelope.cc, "A further recipient; may be repeated");
    addAddresses(arguments, "--bcc", envelope.bcc,
                 "A recipient whom the others do not see; 'sendable' takes the field out");
    addAddresses(arguments, "--reply-to", envelope.replyTo,
                 "Where answers shall go; may be repeated");
    arguments.option("--subject", envelope.subject, "TEXT", "The subject", textProblem);
    arguments.repeatedOption("--header", envelope.headers, "'NAME: VALUE'",
                             "A further field; may be repeated", headerProblem);
    arguments.option("--message-id", envelope.messageId, "ID",
                     "The message's id (default: a new one)", messageIdProblem);
    arguments.flag("--receipt", envelope.receipt, "Ask for a read receipt");
    arguments.out(envelope.out);
}

void addRecipients(Arguments& arguments, Envelope& envelope)
{
    addAddresses(arguments, "--to", envelope.to, "A recipient; may be repeated");
}

void addInReplyTo(Arguments& arguments, Envelope& envelope)
{
    arguments.option("--in-reply-to", envelope.inReplyTo, "ID", "The id of the message answered",
                     messageIdProblem);
}

void requireRecipient(const Envelope& envelope)
{
    if (envelope.to.empty() && envelope.cc.empty() && envelope.bcc.empty())
        Arguments::refuseWithout("--to, --cc or --bcc");
}

Mailbox senderOf(const Envelope& envelope)
{
    return readTypedAddressList(textOf(envelope.from)).value(0);
}

QList<Mailbox> peopleIn(const std::vector<std::string>& values)
{
    QList<Mailbox> people;
    for (const std::string& value : values)
        people += readTypedAddressList(textOf(value));
    return people;
}

void applyEnvelope(const Envelope& envelope, EMAIL_MIME& message)
{
    message.setFrom(addressList({senderOf(envelope)}));
    applyRecipients(envelope, message);
    message.setDate(static_cast<unsigned long>(std::time(nullptr)));
    setField(message, "Message-ID", makeMessageId(senderOf(envelope).address));
    if (!envelope.inReplyTo.empty()) {
        setField(message, "In-Reply-To", messageIdOf(envelope.inReplyTo));
        setField(message, "References", messageIdOf(envelope.inReplyTo));
    }
    applyAdditions(envelope, message);
}

void applyRecipients(const Envelope& envelope, EMAIL_MIME& message)
{
    if (!envelope.to.empty())
        message.setTo(addressList(peopleIn(envelope.to)));
}

void applyAdditions(const Envelope& envelope, EMAIL_MIME& message)
{
    const QList<Mailbox> cc = readAddressList(*message.getHeader(), "Cc") + peopleIn(envelope.cc);
    if (!cc.isEmpty())
        message.setCc(addressList(cc));
    if (!envelope.bcc.empty())
        message.setBcc(addressList(peopleIn(envelope.bcc)));
    if (!envelope.replyTo.empty())
        message.setReplyTo(addressList(peopleIn(envelope.replyTo)));
    if (!envelope.subject.empty())
        message.getHeader()->setSubject(
            writeHeaderValue(textOf(envelope.subject).trimmed(), envelope.charset).valueOr({}));
    if (!envelope.messageId.empty())
        setField(message, "Message-ID", messageIdOf(envelope.messageId));
    // Receipt fields carry no encoded words.
    if (envelope.receipt)
        message.addReceiptRequest(senderOf(envelope).address);
    addFields(envelope, message);
}

} // namespace tarvomime::tool
