// SPDX-License-Identifier: MIT
#include "tools/tarvomime/PrivateFields.h"

#include "tools/tarvomime/Json.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

namespace tarvomime::tool {

namespace {

// The first of the two fields that the header has, or null.
const EMAIL_Field* firstField(const EMAIL_Header& header, const char* name, const char* other)
{
    const EMAIL_Field* field = header.getField(name);
    return field == nullptr && other != nullptr ? header.getField(other) : field;
}

void insertText(QJsonObject& flags, const char* key, const EMAIL_Field* field)
{
    if (field != nullptr)
        flags.insert(QLatin1String(key), jsonText(QByteArray(field->mBody).simplified()));
}

void insertNumber(QJsonObject& flags, const char* key, const EMAIL_Field* field)
{
    if (field != nullptr)
        flags.insert(QLatin1String(key), qint64(field->mBody.toInt()));
}

} // namespace

QJsonObject privateFields(const EMAIL_Header& header)
{
    QJsonObject flags;
    const auto field = [&header](const char* name, const char* other = nullptr) {
        return firstField(header, name, other);
    };
    if (!header.isAttDownloaded())
        flags.insert("downloaded", false);
    insertText(flags, "announcedName", field("X-QRN-AS-Attn-Name"));
    insertNumber(flags, "announcedSize", field("X-QRN-AS-Attn-Size"));
    insertNumber(flags, "truncated", field("X-QRN-Message-Body-Truncated"));
    insertNumber(flags, "fullSize", field("X-QRN-Message-Body-Size"));
    insertNumber(flags, "smartSend", field("X-QRN-Smart-Send-Type"));
    if (field("X-QRN-DSN") != nullptr)
        flags.insert("deliveryNotification", true);
    insertText(flags, "receiptTo", field("Disposition-Notification-To", "Return-Receipt-To"));
    insertText(flags, "partId", field("X-MESSAGE-PARTID"));
    return flags;
}

} // namespace tarvomime::tool
