// SPDX-License-Identifier: MIT
#include "extra/Reply.h"

#include "extra/AddressList.h"
#include "extra/AttachmentName.h"
#include "extra/EncodedWords.h"
#include "extra/MessageContent.h"
#include "extra/MessageId.h"
#include "extra/PartHeader.h"
#include "extra/Quoting.h"
#include "extra/ReplySubject.h"
#include "extra/SafeFileName.h"
#include "utility/EMAIL_BasicMsg.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_Util.h"

#include <algorithm>

namespace tarvomime {

namespace {

void setField(EMAIL_BasicMsg& message, const char* name, const QCString& body)
{
    if (!body.isEmpty())
        message.getHeader()->field(name)->mBody = body;
}

QString subjectOf(const EMAIL_Header& header)
{
    return oneLine(decodedWords(header.getSubject()));
}

QString fieldText(const EMAIL_Header& header, const char* name)
{
    const EMAIL_Field* field = header.getField(name);
    return field == nullptr ? QString() : oneLine(decodedWords(field->mBody));
}

// What an answer and a forwarded message have in common.
Result<void> start(const QString& subject, const ReplyOptions& options, EMAIL_BasicMsg& message)
{
    const Result<QString> from = writeAddressList({options.from});
    if (!from)
        return from.failure();
    const QDateTime date = options.date.isValid() ? options.date : QDateTime::currentDateTimeUtc();
    message.setFrom(*from);
    message.setDate(static_cast<unsigned long>(date.toSecsSinceEpoch()));
    message.setSubject(subject);
    message.setMimeVersion("1.0");
    setField(message, "Message-ID",
             options.messageId.isEmpty() ? makeMessageId(options.from.address) : options.messageId);
    return {};
}

bool isSevenBit(const QByteArray& bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

Result<void> startReply(const EMAIL_Header& original, const ReplyOptions& options,
                        EMAIL_BasicMsg& reply)
{
    const QStringList own = options.ownAddresses + QStringList(options.from.address);
    const ReplyPeople people = replyPeople(original, options.kind, own);
    const Result<QString> to = writeAddressList(people.to);
    const Result<QString> cc = writeAddressList(people.cc);
    if (!to || !cc)
        return to ? cc.failure() : to.failure();
    Result<void> started = start(replySubject(subjectOf(original)), options, reply);
    if (!started)
        return started;
    const ThreadFields thread = replyThread(original);
    reply.setTo(*to);
    if (!cc->isEmpty())
        reply.setCc(*cc);
    setField(reply, "In-Reply-To", thread.inReplyTo);
    setField(reply, "References", thread.references);
    return {};
}

Result<void> startForward(const EMAIL_Header& original, const ReplyOptions& options,
                          EMAIL_BasicMsg& message)
{
    return start(forwardSubject(subjectOf(original)), options, message);
}

void setFlowedBody(EMAIL_BasicMsg& message, const QString& text)
{
    message.setCharset(CHARSET_UTF_8);
    message.setBody(flowedText(text).replace('\n', "\r\n"), true);
    message.getHeader()->contentType()->setParameter("format", "flowed");
}

Result<QString> quotableText(const MessageContent& original)
{
    const QList<ShownBody>& bodies = original.messages.first().bodies;
    if (bodies.size() == 1 && bodies.first().plain.size() == 1) {
        const ContentPart& part = original.parts[bodies.first().plain.first()];
        const bool flows = typeParameter(*part.entity, "format").toLower() == "flowed";
        const bool delSp = typeParameter(*part.entity, "delsp").toLower() == "yes";
        const Result<ReadText> read = flows ? partText(part) : Result<ReadText>(ReadText());
        if (!read)
            return read.failure();
        if (!read->text.trimmed().isEmpty())
            return textFromFlowed(read->text, delSp);
    }
    return shownText(original);
}

QList<EMAIL_MultiPart> forwardedAttachments(const MessageContent& original)
{
    QList<EMAIL_MultiPart> parts;
    for (const int index : original.messages.first().attachments) {
        const EMAIL_Entity& entity = *original.parts[index].entity;
        EMAIL_MultiPart part;
        EMAIL_MIME::entityToMulitPart(&entity, part);
        const QString name = attachableName(attachmentName(*entity.mHeader));
        part.setName(name);
        part.setDispFileName(name);
        part.setDispType(1);
        part.makeHeaderSendable();
        parts.append(part);
    }
    return parts;
}

QString forwardedText(const EMAIL_Header& original, const QString& text, const QString& title)
{
    QString out = "---------- " + title + " ----------\n";
    for (const char* name : {"From", "To", "Cc"}) {
        QStringList people;
        for (const Mailbox& mailbox : readAddressList(original, name))
            people.append(oneLine(mailboxText(mailbox)));
        if (!people.isEmpty())
            out += QLatin1String(name) + ": " + people.join(", ") + '\n';
    }
    for (const char* name : {"Date", "Subject"}) {
        const QString value = fieldText(original, name);
        if (!value.isEmpty())
            out += QLatin1String(name) + ": " + value + '\n';
    }
    return out + '\n' + text;
}

void attachMessage(const QByteArray& message, EMAIL_MultiPart& part)
{
    const EMAIL_BasicMsg parsed(message);
    const QString name = safeFileName(subjectOf(*parsed.mMessage->mHeader), "message") + ".eml";
    part.setTypeStr("message");
    part.setSubTypeStr("rfc822");
    part.setName(name);
    part.setDispFileName(name);
    part.setDispType(1);
    part.setAttSize(-1);
    // A message is attached as it is (RFC 2046, section 5.2.1): no encoding may hide its parts.
    part.setCTE(isSevenBit(message) ? CTE_7BIT : CTE_8BIT);
    part.setBody(message, true);
}

} // namespace tarvomime
