// SPDX-License-Identifier: MIT
// What a message list and a viewer ask. Parts are looked at where they are in the tree; only the
// one that is wanted is read.
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/codec/MediaTypes.h"
#include "utility/file/RegularFile.h"
#include "utility/text/Latin1.h"
#include "utility/tree/EntityMediaType.h"
#include "utility/tree/StoredBody.h"

#include <QFileInfo>
#include <limits>

using namespace tarvomime;

namespace {

// Up to this length a body made of line breaks only is no attachment.
constexpr int kLongestBlankBody = 46;

bool isBlankBody(const QCString& body)
{
    if (body.length() > kLongestBlankBody)
        return false;
    return QByteArray(body).replace("\r\n", "").isEmpty();
}

// Which of the top-level parts have been downloaded.
struct Downloads
{
    bool all = true;
    bool anyOther = false;
    bool hasCalendar = false;
    bool anyCalendar = false;

    void add(const EMAIL_Entity& part)
    {
        const bool isDownloaded = part.mHeader->isAttDownloaded();
        const bool isInvitation = isCalendar(mediaTypeOf(part));
        all = all && isDownloaded;
        hasCalendar = hasCalendar || isInvitation;
        (isInvitation ? anyCalendar : anyOther) |= isDownloaded;
    }
};

// Whether the message text is the body of the message itself.
bool isWholeText(MediaType media)
{
    return media.type == TYPE_UNKNOWN || isPlainText(media);
}

// Where the message text stands: in the message itself, in one of its parts, or nowhere.
struct MessageText
{
    bool isWhole = false;
    const EMAIL_Entity* part = nullptr;
};

MessageText messageText(MediaType media, const EMAIL_Entity* part)
{
    if (isWholeText(media))
        return {true, nullptr};
    return {false, isContainer(media) ? part : nullptr};
}

// 0 for a missing file, and for one that is too long to be mapped.
int sizeOf(const QString& path)
{
    const qint64 size = isFileName(path) ? QFileInfo(path).size() : 0;
    return size <= std::numeric_limits<int>::max() ? static_cast<int>(size) : 0;
}

} // namespace

// 1. A text message that is not plain counts as having an attachment: the list shows the mark for
//    what its plain viewer cannot show.
bool EMAIL_MIME::hasAttachment() const
{
    const MediaType media{getType(), getSubType()};
    switch (media.type) {
    case TYPE_UNKNOWN:
        return false;
    case TYPE_TEXT:
        return !isPlainText(media);
    case TYPE_MULTIPART:
        return !isAlternative(media) && !isReport(media) && getMultiPartCount() > 1;
    case TYPE_APPLICATION:
        return true;
    default:
        break;
    }
    const EMAIL_Body& body = *mMessage->mBody;
    return body.isInMemory() ? !isBlankBody(body.getMessage()) : body.mLength != 0;
}

// 1. A message without a type counts as one attachment, although it shows no mark.
int EMAIL_MIME::getAttachNum() const
{
    const MediaType media{getType(), getSubType()};
    if (media.type == TYPE_UNKNOWN)
        return 1;
    if (isPlainText(media) || isAlternative(media))
        return 0;
    if (!isContainer(media))
        return 1;
    const EMAIL_Entity* first = topLevelPart(0);
    if (first == nullptr)
        return 0;
    const int count = getMultiPartCount();
    const MediaType firstMedia = mediaTypeOf(*first);
    return isAlternative(firstMedia) || isPlainText(firstMedia) ? count - 1 : count;
}

// 1. A truncation marker of any value but -1 means incomplete, 0 and what is no number included.
bool EMAIL_MIME::isCompleteMessage() const
{
    if (getBodyTruncated() != -1)
        return false;
    const MediaType media{getType(), getSubType()};
    if (isReport(media) || getMultiPartCount() == 0)
        return true;
    // Of a message type every part reads as the enclosed message.
    if (!isContainer(media)) {
        const EMAIL_Entity* enclosed = topLevelPart(0);
        return enclosed != nullptr && enclosed->mHeader->isAttDownloaded();
    }
    Downloads downloads;
    for (const EMAIL_BodyPart* part : mMessage->mBody->mBodyParts) {
        if (part == nullptr)
            return false;
        downloads.add(*part);
    }
    if (!isAlternative(media))
        return downloads.all;
    return downloads.hasCalendar ? downloads.anyCalendar : downloads.anyOther;
}

const EMAIL_Entity* EMAIL_MIME::messageTextPart() const
{
    const EMAIL_Entity* first = getMultiPartCount() > 0 ? topLevelPart(0) : nullptr;
    if (first == nullptr)
        return nullptr;
    const EMAIL_Entity* subPart = firstSubPart(*first);
    if (isAlternative({getType(), getSubType()}))
        return subPart == nullptr ? first : subPart;
    const MediaType media = mediaTypeOf(*first);
    if (isPlainText(media))
        return first;
    if (isAlternative(media))
        return subPart;
    const bool wrapped =
        isRelated(media) && subPart != nullptr && isAlternative(mediaTypeOf(*subPart));
    return wrapped ? firstSubPart(*subPart) : nullptr;
}

int EMAIL_MIME::getBody(QString& text, int charset) const
{
    const MessageText found = messageText({getType(), getSubType()}, messageTextPart());
    if (found.isWhole)
        return EMAIL_BasicMsg::getBody(text, charset == CHARSET_UNKNOWN ? getCharset() : charset);
    if (found.part != nullptr)
        readText(*found.part, charset, text);
    return 0;
}

int EMAIL_MIME::getBody(QFile* out, const ProgressCallback& progress) const
{
    return getType() == TYPE_MULTIPART ? 0 : EMAIL_BasicMsg::getBody(out, progress);
}

int EMAIL_MIME::getBodyPartId(QString& partId) const
{
    const MessageText found = messageText({getType(), getSubType()}, messageTextPart());
    if (found.isWhole)
        partId = QLatin1String("");
    else if (found.part != nullptr)
        partId = fromLatin1OrNull(found.part->mHeader->getPartID());
    return 0;
}

int EMAIL_MIME::getBodyOrPartId(QString& text, QString& partId, int mode, int charset) const
{
    switch (mode) {
    case 0:
        return getBody(text, charset);
    case 1:
        return getBodyPartId(partId);
    default:
        return 0;
    }
}

// 1. Only text/plain is taken, while a viewer shows the first alternative whatever its type, and in
//    an alternative message only the first part itself.
// 2. The message text is always found down the first sub-parts: in the copy of the first part it is
//    the first leaf.
void EMAIL_MIME::setRawBody(const QString& path)
{
    const MediaType media{getType(), getSubType()};
    if (media.type != TYPE_MULTIPART) {
        setBodyInfo(path, 0, sizeOf(path), true);
        return;
    }
    const EMAIL_Entity* text = messageTextPart();
    const bool isFirst = text == topLevelPart(0);
    if (text == nullptr || !isPlainText(mediaTypeOf(*text)) || (isAlternative(media) && !isFirst))
        return;
    EMAIL_MultiPart first;
    getMultiPart(0, first);
    EMAIL_MultiPart* textPart = &first;
    while (textPart->getSubMultiPartCount() > 0)
        textPart = textPart->getSubMultiPart(0);
    textPart->setBodyInfo(path, 0, sizeOf(path), true);
    textPart->setAttDownloaded();
    setMultiPart(first, 0, true);
}
