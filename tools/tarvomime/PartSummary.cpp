// SPDX-License-Identifier: MIT
#include "tools/tarvomime/PartSummary.h"

#include "extra/EncodedWords.h"
#include "extra/FieldParameter.h"
#include "extra/MessageContent.h"
#include "tools/tarvomime/Json.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/PrivateFields.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Entity.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <QLocale>

namespace tarvomime::tool {

namespace {

QByteArray rawValue(const EMAIL_Header& header, const QCString& name)
{
    const EMAIL_Field* field = header.getField(name);
    return field == nullptr ? QByteArray() : QByteArray(field->mBody).simplified();
}

// Base64 makes 4 characters of 3 bytes; line ends are not told apart from them.
int decodedSize(int storedSize, int cte)
{
    return cte == CTE_BASE64 ? (storedSize + 3) / 4 * 3 : storedSize;
}

QByteArray sizeInWords(int size)
{
    if (size == 1)
        return "1 byte";
    if (size < 1000)
        return QByteArray::number(size) + " bytes";
    return QLocale::c().formattedDataSize(size, 1, QLocale::DataSizeSIFormat).toUtf8();
}

QByteArray flagInWords(const QString& key, const QJsonValue& value)
{
    QByteArray shown = value.toVariant().toString().toUtf8();
    if (value.isBool())
        shown = value.toBool() ? "yes" : "no";
    if (value.isObject())
        shown = QByteArray::fromBase64(value.toObject().value("base64").toString().toLatin1());
    return key.toUtf8() + ": " + shown;
}

QByteArray quoted(const QString& text)
{
    return '"' + text.toUtf8() + '"';
}

} // namespace

PartSummary::PartSummary(const MessageContent& content, int index, const QByteArray& fallback)
    : number(partNumber(content, index)), type(content.parts[index].type)
{
    const ContentPart& part = content.parts[index];
    const EMAIL_Header& header = *part.entity->mHeader;
    const EMAIL_Body& body = *part.entity->mBody;
    if (const EMAIL_ContentType* field = header.getContentType()) {
        charset = fieldParameter(field->mBody, "charset", fallback);
        name = fieldParameter(field->mBody, "name", fallback);
    }
    if (const EMAIL_DispositionType* field = header.getContentDisposition()) {
        disposition = field->mIsAttachment != 0 ? "attachment" : "inline";
        fileName = fieldParameter(field->mBody, "filename", fallback);
    }
    encoding = rawValue(header, "Content-Transfer-Encoding").toLower();
    if (part.role == PartRole::Message && index + 1 < content.parts.size())
        subject = decodedWords(content.parts[index + 1].entity->mHeader->getSubject(), fallback);
    storedSize = body.mInMemory ? body.mString.length() : body.mLength;
    size = decodedSize(storedSize, header.getCte());
    flags = privateFields(header);
}

QJsonObject PartSummary::toJson() const
{
    QJsonObject object{{"type", jsonText(type)}, {"size", size}, {"storedSize", storedSize}};
    const auto insert = [&object](const char* key, const QJsonValue& value) {
        if (value.isObject() || !value.toString().isEmpty())
            object.insert(QLatin1String(key), value);
    };
    insert("number", jsonText(number));
    insert("charset", charset);
    insert("encoding", jsonText(encoding));
    insert("disposition", disposition);
    insert("fileName", fileName);
    insert("name", name);
    insert("subject", subject);
    if (!flags.isEmpty())
        object.insert("flags", flags);
    return object;
}

QByteArray PartSummary::toWords() const
{
    QByteArray words = type;
    const auto append = [&words](const QByteArray& word) {
        if (!word.isEmpty())
            words += ", " + word;
    };
    append(charset.toUtf8());
    append(encoding);
    append(sizeInWords(size));
    append(disposition.toUtf8());
    if (!fileName.isEmpty())
        append(quoted(fileName));
    if (!name.isEmpty() && name != fileName)
        append((fileName.isEmpty() ? "" : "named ") + quoted(name));
    if (!subject.isEmpty())
        append("subject: " + subject.simplified().toUtf8());
    for (auto flag = flags.begin(); flag != flags.end(); ++flag)
        append(flagInWords(flag.key(), flag.value()));
    return printableLine({words.constData(), static_cast<std::size_t>(words.size())});
}

} // namespace tarvomime::tool
