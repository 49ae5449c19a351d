// SPDX-License-Identifier: MIT
#include "tools/tarvomime/PartFacts.h"

#include "extra/FieldParameter.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Entity.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

namespace tarvomime::tool {

namespace {

QString fieldText(const EMAIL_Header& header, const QCString& name)
{
    const EMAIL_Field* field = header.getField(name);
    return field == nullptr ? QString() : QString::fromUtf8(QByteArray(field->mBody)).simplified();
}

/// The name of a charset that the user chose by its number.
QByteArray charsetName(int charset)
{
    QCString name;
    EMAIL_Util::charsetEnumToStr(charset, name);
    return name;
}

void readContentType(const EMAIL_Header& header, int charset, PartFacts& facts)
{
    facts.type = QStringLiteral("text/plain");
    const EMAIL_ContentType* type = header.getContentType();
    if (type == nullptr)
        return;
    const QString mediaType = QString::fromUtf8(QByteArray(type->mType));
    const QString subType = QString::fromUtf8(QByteArray(type->mSubType));
    facts.type = (mediaType + '/' + subType).toLower();
    facts.charset = fieldParameter(type->mBody, "charset", charsetName(charset));
    facts.name = fieldParameter(type->mBody, "name", charsetName(charset));
}

void readDisposition(const EMAIL_Header& header, int charset, PartFacts& facts)
{
    const EMAIL_DispositionType* disposition = header.getContentDisposition();
    if (disposition == nullptr)
        return;
    facts.disposition =
        disposition->mIsAttachment != 0 ? QStringLiteral("attachment") : QStringLiteral("inline");
    facts.fileName = fieldParameter(disposition->mBody, "filename", charsetName(charset));
    // A name under any other parameter is what the library's users see; it keeps a lone pair of
    // quotes.
    const QCString stored = disposition->getFileName();
    if (facts.fileName.isEmpty() && stored != "\"\"")
        EMAIL_Util::decode_2047_String(stored, facts.fileName, charset);
}

/// Base64 makes 4 characters of 3 bytes; line ends are not told apart from them.
int decodedSize(int storedSize, int cte)
{
    return cte == CTE_BASE64 ? (storedSize + 3) / 4 * 3 : storedSize;
}

void insertNumber(QJsonObject& flags, const char* key, const EMAIL_Header& header,
                  const QCString& fieldName)
{
    const EMAIL_Field* field = header.getField(fieldName);
    if (field != nullptr)
        flags.insert(QLatin1String(key), qint64(field->mBody.toInt()));
}

QString sizeInWords(int size)
{
    return QString::number(size) + (size == 1 ? " byte" : " bytes");
}

} // namespace

QJsonObject extensionFlags(const EMAIL_Header& header)
{
    QJsonObject flags;
    const auto insertText = [&](const char* key, const QCString& fieldName) {
        if (header.getField(fieldName) != nullptr)
            flags.insert(QLatin1String(key), fieldText(header, fieldName));
    };
    if (!header.isAttDownloaded())
        flags.insert("downloaded", false);
    insertText("announcedName", "X-QRN-AS-Attn-Name");
    insertNumber(flags, "announcedSize", header, "X-QRN-AS-Attn-Size");
    insertNumber(flags, "truncated", header, "X-QRN-Message-Body-Truncated");
    insertNumber(flags, "fullSize", header, "X-QRN-Message-Body-Size");
    insertNumber(flags, "smartSend", header, "X-QRN-Smart-Send-Type");
    if (header.getField("X-QRN-DSN") != nullptr)
        flags.insert("deliveryNotification", true);
    insertText("receiptTo", "Disposition-Notification-To");
    if (!flags.contains("receiptTo"))
        insertText("receiptTo", "Return-Receipt-To");
    insertText("partId", "X-MESSAGE-PARTID");
    return flags;
}

PartFacts::PartFacts(const EMAIL_Entity& entity, int undeclaredCharset)
{
    const EMAIL_Header& header = *entity.mHeader;
    const EMAIL_Body& body = *entity.mBody;
    readContentType(header, undeclaredCharset, *this);
    readDisposition(header, undeclaredCharset, *this);
    encoding = fieldText(header, "Content-Transfer-Encoding").toLower();
    storedSize = body.mInMemory ? body.mString.length() : body.mLength;
    size = decodedSize(storedSize, header.getCte());
    flags = extensionFlags(header);
}

QJsonObject PartFacts::toJson() const
{
    QJsonObject object;
    const auto insertText = [&object](const char* key, const QString& text) {
        if (!text.isEmpty())
            object.insert(QLatin1String(key), text);
    };
    insertText("type", type);
    insertText("charset", charset);
    insertText("encoding", encoding);
    insertText("disposition", disposition);
    insertText("fileName", fileName);
    insertText("name", name);
    object.insert("size", size);
    object.insert("storedSize", storedSize);
    if (!flags.isEmpty())
        object.insert("flags", flags);
    return object;
}

QStringList PartFacts::toWords() const
{
    QStringList words = {type};
    const auto append = [&words](const QString& text) {
        if (!text.isEmpty())
            words.append(text);
    };
    append(charset);
    append(encoding);
    append(sizeInWords(size));
    append(disposition);
    if (!fileName.isEmpty())
        append('"' + fileName + '"');
    if (!name.isEmpty() && name != fileName)
        append(fileName.isEmpty() ? '"' + name + '"' : "named \"" + name + '"');
    for (auto flag = flags.begin(); flag != flags.end(); ++flag) {
        const QJsonValue& value = flag.value();
        const QString shown =
            value.isBool() ? QString(value.toBool() ? "yes" : "no") : value.toVariant().toString();
        append(flag.key() + ": " + shown);
    }
    return words;
}

} // namespace tarvomime::tool
