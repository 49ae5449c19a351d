// SPDX-License-Identifier: MIT
// What a message list and a viewer ask. Parts are looked at where they are in the tree; only the
// one that is wanted is read.
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/text/Latin1.h"
#include "utility/tree/Container.h"
#include "utility/tree/MediaType.h"

#include <QFileInfo>
#include <limits>

using namespace tarvomime;

namespace {

// Up to this length a body made of line breaks only is no attachment.
constexpr int longestBlankBody = 46;

bool isBlankBody(const QCString& body)
{
    if (body.length() > longestBlankBody)
        return false;
    return QByteArray(body).replace("\r\n", "").isEmpty();
}

MediaType mediaTypeOf(const EMAIL_MultiPart& part)
{
    return {part.mTypeEnum, part.mSubTypeEnum};
}

/// The part whose body a separately downloaded message text becomes; null when there is none.
///
/// 1. Only text/plain is taken, while a viewer shows the first alternative whatever its type.
EMAIL_MultiPart* plainTextPart(EMAIL_MultiPart& first, bool inAlternative)
{
    EMAIL_MultiPart* part = &first;
    if (!inAlternative) {
        if (isRelated(mediaTypeOf(*part)) && part->getSubMultiPartCount() > 0)
            part = part->getSubMultiPart(0);
        const bool enclosed = part != &first;
        if (isAlternative(mediaTypeOf(*part)) && part->getSubMultiPartCount() > 0)
            part = part->getSubMultiPart(0);
        else if (enclosed)
            return nullptr;
    }
    return isPlainText(mediaTypeOf(*part)) ? part : nullptr;
}

/// 0 for a missing file, and for one that is too long to be mapped.
int sizeOf(const QString& path)
{
    const qint64 size = QFileInfo(path).size();
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
        return !isAlternative(media) && media.subType != SUBTYPE_REPORT && getMultiPartCount() > 1;
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
    if (!isContainer(media.type, media.subType))
        return 1;
    const int count = getMultiPartCount();
    const EMAIL_Entity* first = topLevelPart(0);
    if (count == 0 || first == nullptr)
        return 0;
    const MediaType firstMedia = tarvomime::mediaTypeOf(*first);
    return isAlternative(firstMedia) || isPlainText(firstMedia) ? count - 1 : count;
}

// 1. A truncation marker of any value but -1 means incomplete, 0 and what is no number included.
bool EMAIL_MIME::isCompleteMessage() const
{
    if (getBodyTruncated() != -1)
        return false;
    const MediaType media{getType(), getSubType()};
    const int count = getMultiPartCount();
    if ((media.type == TYPE_MULTIPART && media.subType == SUBTYPE_REPORT) || count <= 0)
        return true;
    bool hasCalendar = false;
    bool calendarDownloaded = false;
    bool otherDownloaded = false;
    for (int i = 0; i < count; ++i) {
        const EMAIL_Entity* part = topLevelPart(i);
        if (part == nullptr)
            return false;
        const bool downloaded = part->mHeader->isAttDownloaded();
        if (!isAlternative(media)) {
            if (!downloaded)
                return false;
        } else if (isCalendar(tarvomime::mediaTypeOf(*part))) {
            hasCalendar = true;
            calendarDownloaded = calendarDownloaded || downloaded;
        } else {
            otherDownloaded = otherDownloaded || downloaded;
        }
    }
    if (!isAlternative(media))
        return true;
    return hasCalendar ? calendarDownloaded : otherDownloaded;
}

const EMAIL_Entity* EMAIL_MIME::messageTextPart() const
{
    const EMAIL_Entity* first = getMultiPartCount() > 0 ? topLevelPart(0) : nullptr;
    if (first == nullptr)
        return nullptr;
    const EMAIL_Entity* subPart = firstSubPart(*first);
    if (isAlternative({getType(), getSubType()}))
        return subPart == nullptr ? first : subPart;
    const MediaType media = tarvomime::mediaTypeOf(*first);
    if (isPlainText(media))
        return first;
    if (isAlternative(media))
        return subPart;
    const bool wrapped =
        isRelated(media) && subPart != nullptr && isAlternative(tarvomime::mediaTypeOf(*subPart));
    return wrapped ? firstSubPart(*subPart) : nullptr;
}

int EMAIL_MIME::getBody(QString& text, int charset) const
{
    QString unused;
    return getBodyOrPartId(text, unused, 0, charset);
}

int EMAIL_MIME::getBody(QFile* out, const ProgressCallback& progress) const
{
    return getType() == TYPE_MULTIPART ? 0 : EMAIL_BasicMsg::getBody(out, progress);
}

int EMAIL_MIME::getBodyPartId(QString& partId) const
{
    QString unused;
    return getBodyOrPartId(unused, partId, 1, CHARSET_UNKNOWN);
}

int EMAIL_MIME::getBodyOrPartId(QString& text, QString& partId, int mode, int charset) const
{
    const MediaType media{getType(), getSubType()};
    if (isContainer(media.type, media.subType)) {
        const EMAIL_Entity* entity = messageTextPart();
        if (entity != nullptr && mode == 0) {
            EMAIL_MultiPart part;
            entityToMulitPart(entity, part);
            part.getTextBody(text, charset);
        } else if (entity != nullptr && mode == 1) {
            partId = fromLatin1(entity->mHeader->getPartID());
        }
        return 0;
    }
    if (media.type != TYPE_UNKNOWN && !isPlainText(media))
        return 0;
    if (mode == 0)
        return EMAIL_BasicMsg::getBody(text, charset == CHARSET_UNKNOWN ? getCharset() : charset);
    if (mode == 1)
        partId = QLatin1String("");
    return 0;
}

void EMAIL_MIME::setRawBody(const QString& path)
{
    const MediaType media{getType(), getSubType()};
    if (media.type != TYPE_MULTIPART) {
        setBodyInfo(path, 0, sizeOf(path), true);
        return;
    }
    EMAIL_MultiPart first;
    if (getMultiPartCount() < 1 || !getMultiPart(0, first))
        return;
    EMAIL_MultiPart* text = plainTextPart(first, isAlternative(media));
    if (text == nullptr)
        return;
    text->setBodyInfo(path, 0, sizeOf(path), true);
    text->setAttDownloaded();
    setMultiPart(first, 0, true);
}
