// SPDX-License-Identifier: MIT
// Any message can be answered and forwarded, and nothing that it says becomes a field of the
// answer.

#include "extra/HeaderValue.h"
#include "extra/MessageContent.h"
#include "extra/MessageId.h"
#include "extra/Reply.h"
#include "extra/ReplySubject.h"
#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_BasicMsg.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

using namespace tarvomime;
using namespace tarvomime::fuzz;

namespace {

void requireNoForeignField(EMAIL_BasicMsg& message, int known)
{
    const int count = int(message.getHeader()->mFields.count());
    require(count <= known, "only fields of an answer are there");
    const EMAIL_BasicMsg again{QByteArray(message.assemble())};
    require(int(again.getHeader()->mFields.count()) <= count, "reading it again finds no more");
}

void requireNoForeignFieldInParts(const EMAIL_BasicMsg& original)
{
    const MessageContent content = readContent(*original.mMessage);
    for (const EMAIL_MultiPart& part : forwardedAttachments(content)) {
        EMAIL_MIME message;
        message.addMultiPart(part, -1);
        const EMAIL_MIME again{QByteArray(message.assemble())};
        for (const ContentPart& read : readContent(*again.mMessage).parts)
            require(int(read.entity->mHeader->mFields.count()) <= 12, "only fields of a part");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const QCString text = toText(bytes, size);
    const EMAIL_BasicMsg original{QByteArray(text)};
    ReplyOptions options;
    options.from.address = QStringLiteral("me@home.example");
    options.date = QDateTime::fromSecsSinceEpoch(0);
    options.messageId = "<1@home.example>";
    for (const ReplyKind kind : {ReplyKind::Sender, ReplyKind::All, ReplyKind::List}) {
        options.kind = kind;
        EMAIL_BasicMsg reply;
        if (startReply(*original.getHeader(), options, reply))
            requireNoForeignField(reply, 12);
    }
    EMAIL_BasicMsg forward;
    if (startForward(*original.getHeader(), options, forward))
        requireNoForeignField(forward, 12);
    requireNoForeignFieldInParts(original);
    require(!forwardedText(*original.getHeader(), "x", "title").contains('\r'),
            "lines are our own");
    for (const QCString& id : readMessageIds(text))
        require(id.left(1) == "<" && id.right(1) == ">", "an id has its brackets");
    const QString subject = QString::fromUtf8(toArray(bytes, size));
    require(replySubject(replySubject(subject)) == replySubject(subject),
            "prefixes do not pile up");
    return 0;
}
