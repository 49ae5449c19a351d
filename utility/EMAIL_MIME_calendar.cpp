// SPDX-License-Identifier: MIT
// Meeting invitations: finding the calendar parts, and making the two parts of a new one.
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/codec/MediaTypes.h"
#include "utility/file/RegularFile.h"
#include "utility/text/Latin1.h"
#include "utility/text/Room.h"
#include "utility/tree/EntityMediaType.h"
#include "utility/tree/StoredBody.h"

#include <optional>

using namespace tarvomime;

namespace {

using Parts = QPtrList<EMAIL_BodyPart>;

// The list in which an invitation has its calendars: the message's own or that of its first part.
const Parts* alternatives(const EMAIL_MIME& message)
{
    const MediaType media{message.getType(), message.getSubType()};
    if (media.type != TYPE_MULTIPART)
        return nullptr;
    const EMAIL_Body& body = *message.mMessage->mBody;
    if (isAlternative(media))
        return &body.mBodyParts;
    const EMAIL_Entity* first = body.bodyPart(0);
    const bool isInvitation = first != nullptr && isAlternative(mediaTypeOf(*first));
    return isInvitation ? &first->mBody->mBodyParts : nullptr;
}

// Calls `action` with each calendar part of an invitation, in order.
//
// 1. A part of the message that cannot be read ends them; one further down is passed over.
template <class Action>
void forEachCalendar(const EMAIL_MIME& message, Action action)
{
    const Parts* parts = alternatives(message);
    if (parts == nullptr)
        return;
    const bool isTopLevel = parts == &message.mMessage->mBody->mBodyParts;
    for (const EMAIL_BodyPart* part : *parts) {
        if (part == nullptr && isTopLevel)
            break;
        if (part != nullptr && isCalendar(mediaTypeOf(*part)))
            action(*part);
    }
}

// Nothing when it cannot be read, or is no regular file: a FIFO and a device have no end.
std::optional<QByteArray> contentOf(const QString& path)
{
    const RegularFile file(path, FileAccess::Read);
    if (!file.isOpen())
        return std::nullopt;
    auto content = roomFor<QByteArray>(static_cast<quint64>(file.size()));
    if (content && !file.read(0, content->data(), file.size()))
        return std::nullopt;
    return content;
}

} // namespace

// 1. All calendar parts are written one after the other.
// 2. That a part cannot be read or written does not show in the result, unless it is the message.
int EMAIL_MIME::getICalendar(QFile* out) const
{
    if (isCalendar({getType(), getSubType()}))
        return EMAIL_BasicMsg::getBody(out);
    forEachCalendar(*this, [out](const EMAIL_Entity& calendar) { writeContent(calendar, out); });
    return 0;
}

// 1. Of several calendar parts the last one counts.
int EMAIL_MIME::getCalendarPartId(QString& partId) const
{
    partId = QLatin1String("");
    const EMAIL_Entity* last = nullptr;
    forEachCalendar(*this, [&last](const EMAIL_Entity& calendar) { last = &calendar; });
    if (last != nullptr)
        partId = fromLatin1OrNull(last->mHeader->getPartID());
    return 0;
}

int EMAIL_MIME::getCalendarOrPartId(QFile* out, QString& partId, int mode) const
{
    partId = QLatin1String("");
    switch (mode) {
    case 0:
        return getICalendar(out);
    case 1:
        return getCalendarPartId(partId);
    default:
        return 0;
    }
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
    const auto calendar = contentOf(icsPath);
    if (!calendar)
        return -1;
    calPart->setBody(*calendar, false);
    return 0;
}
