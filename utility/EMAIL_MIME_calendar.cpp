// SPDX-License-Identifier: MIT
// Meeting invitations: finding the calendar parts, and making the two parts of a new one.
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/text/Latin1.h"
#include "utility/tree/MediaType.h"

#include <QFile>
#include <limits>

using namespace tarvomime;

namespace {

/// Writes the body of a calendar part to `out` or reads its identifier; other parts are passed
/// over.
void handleCalendar(const EMAIL_Entity* entity, QFile* out, QString& partId, int mode)
{
    if (entity == nullptr || !isCalendar(mediaTypeOf(*entity)))
        return;
    if (mode == 0) {
        EMAIL_MultiPart part;
        EMAIL_MIME::entityToMulitPart(entity, part);
        part.getBody(out);
    } else if (mode == 1) {
        partId = fromLatin1(entity->mHeader->getPartID());
    }
}

} // namespace

int EMAIL_MIME::getICalendar(QFile* out) const
{
    QString unused;
    return getCalendarOrPartId(out, unused, 0);
}

int EMAIL_MIME::getCalendarPartId(QString& partId) const
{
    return getCalendarOrPartId(nullptr, partId, 1);
}

// 1. All calendar parts are handled: their bodies are written one after the other, and the last
//    identifier wins.
// 2. That a part cannot be read or written does not show in the result, unless it is the message.
int EMAIL_MIME::getCalendarOrPartId(QFile* out, QString& partId, int mode) const
{
    partId = QLatin1String("");
    const MediaType media{getType(), getSubType()};
    if (isCalendar(media))
        return mode == 0 ? EMAIL_BasicMsg::getBody(out) : 0;
    if (media.type != TYPE_MULTIPART)
        return 0;
    if (isAlternative(media)) {
        for (const EMAIL_BodyPart* part : mMessage->mBody->mBodyParts) {
            if (part == nullptr)
                return 0;
            handleCalendar(part, out, partId, mode);
        }
        return 0;
    }
    const EMAIL_Entity* first = topLevelPart(0);
    if (first == nullptr || !isAlternative(mediaTypeOf(*first)))
        return 0;
    for (const EMAIL_BodyPart* part : first->mBody->mBodyParts)
        handleCalendar(part, out, partId, mode);
    return 0;
}

int EMAIL_MIME::getIcsPart(const QString& icsPath, const QString& text, const QString& method,
                           EMAIL_MultiPart* textPart, EMAIL_MultiPart* calPart)
{
    if (textPart == nullptr || calPart == nullptr)
        return -1;
    textPart->setType(TYPE_TEXT);
    textPart->setSubType(SUBTYPE_PLAIN);
    textPart->setCTE(CTE_8BIT);
    textPart->setCharset(CHARSET_UTF_8);
    textPart->setBody(text, true);

    calPart->setType(TYPE_TEXT);
    calPart->setSubType(SUBTYPE_CALENDAR);
    calPart->setCTE(CTE_8BIT);
    calPart->setName(QStringLiteral("meeting.ics"));
    calPart->setMethod(method);
    QFile file(icsPath);
    // Qt prints a warning about a file without a name.
    if (icsPath.isEmpty() || !file.open(QIODevice::ReadOnly) ||
        file.size() > std::numeric_limits<int>::max())
        return -1;
    const QByteArray calendar = file.readAll();
    if (file.error() != QFile::NoError)
        return -1;
    calPart->setBody(calendar, false);
    return 0;
}
