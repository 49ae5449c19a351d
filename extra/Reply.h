// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Mailbox.h"
#include "extra/ReplyPeople.h"
#include "extra/Result.h"
#include "types/QCString.h"
#include "utility/EMAIL_MultiPart.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>

class EMAIL_BasicMsg;
class EMAIL_Header;

namespace tarvomime {

struct MessageContent;

/// What a new message needs to know beside its original.
struct ReplyOptions
{
    /// The person who writes.
    Mailbox from;
    /// Whom an answer goes to, and the addresses of the person who writes beside `from`'s, which it
    /// does not go to. Neither matters to a forwarded message.
    ReplyKind kind = ReplyKind::Sender;
    QStringList ownAddresses;
    /// Now and a new id where they are not given.
    QDateTime date;
    QCString messageId;
};

/// Fills the header of an answer: From, To, Cc, Date, Subject, Message-ID, In-Reply-To, References
/// and MIME-Version. Give it a new message, and then a body (`setFlowedBody`). Fails where `from`
/// or somebody who would get it cannot be written.
TARVOMIME_EXTRA_EXPORT Result<void> startReply(const EMAIL_Header& original,
                                               const ReplyOptions& options, EMAIL_BasicMsg& reply);

/// Fills the header of a message that forwards: From, Date, Subject, Message-ID and MIME-Version.
/// To whom it goes is set by `writeAddressList`. Its body is a text with `forwardedText` in it, or
/// parts with `attachedMessage` among them.
TARVOMIME_EXTRA_EXPORT Result<void>
startForward(const EMAIL_Header& original, const ReplyOptions& options, EMAIL_BasicMsg& message);

/// Makes `text` the message's body: plain text that flows (RFC 3676), in UTF-8 or plain ASCII.
TARVOMIME_EXTRA_EXPORT void setFlowedBody(EMAIL_BasicMsg& message, const QString& text);

/// The text of a message as an answer quotes it: what `shownText` gives, with the paragraphs of
/// text that flows (RFC 3676) in one line each.
TARVOMIME_EXTRA_EXPORT Result<QString> quotableText(const MessageContent& original);

/// The attachments of a message as they are, for one that forwards its text. Bodies in a file stay
/// there.
TARVOMIME_EXTRA_EXPORT QList<EMAIL_MultiPart> forwardedAttachments(const MessageContent& original);

/// A text below `title` ("Forwarded message") and the original's From, To, Cc, Date and Subject.
TARVOMIME_EXTRA_EXPORT QString forwardedText(const EMAIL_Header& original, const QString& text,
                                             const QString& title);

/// Makes `part` an attachment that holds a message as it is, named after its subject.
TARVOMIME_EXTRA_EXPORT void attachMessage(const QByteArray& message, EMAIL_MultiPart& part);

} // namespace tarvomime
