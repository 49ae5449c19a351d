// SPDX-License-Identifier: MIT
#include "bench/messages/Library.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/EMAIL_Util.h"

#include <QFile>
#include <benchmark/benchmark.h>

namespace bench {

namespace {

bool isContainer(const EMAIL_Body& body)
{
    return body.mMessage != nullptr || body.numBodyParts() > 0;
}

void readPart(const EMAIL_Entity& part, Findings& found)
{
    const EMAIL_ContentType* type = part.mHeader->getContentType();
    if (!isContainer(*part.mBody))
        ++found.parts;
    if (type == nullptr)
        return;
    QCString name;
    type->getName(name);
    QString text;
    EMAIL_Util::decode_2047_String(name, text, CHARSET_UTF_8);
    found.names += text.isEmpty() ? 0 : 1;
}

void readParts(const EMAIL_Entity& top, Findings& found)
{
    std::vector<const EMAIL_Entity*> waiting{&top};
    while (!waiting.empty()) {
        const EMAIL_Entity* part = waiting.back();
        waiting.pop_back();
        readPart(*part, found);
        if (part->mBody->mMessage != nullptr)
            waiting.push_back(part->mBody->mMessage);
        for (const EMAIL_BodyPart* each : part->mBody->mBodyParts)
            waiting.push_back(each);
    }
}

Findings readAll(const EMAIL_MIME& message)
{
    Findings found;
    benchmark::DoNotOptimize(message.getFrom(CHARSET_UTF_8).constData());
    benchmark::DoNotOptimize(message.getTo(CHARSET_UTF_8).constData());
    found.subjectLength = static_cast<std::size_t>(message.getSubject(CHARSET_UTF_8).size());
    found.date = static_cast<long long>(message.getDate());
    readParts(*message.mMessage, found);
    return found;
}

int charsetOf(Language language)
{
    switch (language) {
    case Language::Russian:
        return CHARSET_UTF_8;
    case Language::German:
        return CHARSET_ISO_8859_1;
    default:
        return CHARSET_GB2312;
    }
}

} // namespace

bool canDo(Job)
{
    return true;
}

Findings parseAndRead(const std::string& text)
{
    const EMAIL_MIME message(QByteArray(text.data(), static_cast<int>(text.size())));
    return readAll(message);
}

Findings parseInPlace(const std::string& text)
{
    EMAIL_MIME message;
    message.mMessage = new EMAIL_Message(
        QCString::fromRawData(text.data(), static_cast<int>(text.size())), nullptr);
    message.mMessage->parse();
    return readAll(message);
}

Findings parseFile(const std::string& path)
{
    EMAIL_MIME message;
    return message.parse(QString::fromStdString(path)) == 0 ? readAll(message) : Findings();
}

bool saveAttachment(const std::string& path, const std::string& to)
{
    EMAIL_MIME message;
    EMAIL_MultiPart part;
    QFile file(QString::fromStdString(to));
    return message.parse(QString::fromStdString(path)) == 0 && message.getMultiPart(1, part) &&
           file.open(QIODevice::WriteOnly) && part.getBody(&file) == 0;
}

std::size_t buildMessage(const std::vector<std::string>& attachments)
{
    EMAIL_MIME message;
    message.setTypeStr(QStringLiteral("multipart"));
    message.setSubTypeStr(QStringLiteral("mixed"));
    message.setFrom(QStringLiteral("joerg@example.org"));
    message.setTo(QStringLiteral("anna@example.com"));
    message.setSubject(QStringLiteral("Minutes of the meeting"));
    message.setDate(1731402000);
    for (const std::string& attachment : attachments) {
        EMAIL_MultiPart part;
        part.setTypeStr(QStringLiteral("application"));
        part.setSubTypeStr(QStringLiteral("octet-stream"));
        part.setCTE(CTE_BASE64);
        part.setDispFileName(QStringLiteral("figures.bin"));
        part.setDispType(1);
        part.setBody(
            QByteArray::fromRawData(attachment.data(), static_cast<int>(attachment.size())), false);
        message.addMultiPart(part, -1);
    }
    return static_cast<std::size_t>(message.assemble().length());
}

std::string decodeSubject(const std::string& wire, bool isShown)
{
    QString text;
    EMAIL_Util::decode_2047_String(
        QCString::fromBytes(QByteArray::fromRawData(wire.data(), static_cast<int>(wire.size()))),
        text, CHARSET_UTF_8);
    benchmark::DoNotOptimize(text.constData());
    return isShown ? text.toStdString() : std::string();
}

struct LibraryText
{
    QString text;
};

LibraryText* newLibraryText(const std::string& utf8)
{
    return new LibraryText{QString::fromStdString(utf8)};
}

void deleteLibraryText(LibraryText* text)
{
    delete text;
}

std::string encodeSubject(const LibraryText& text, Language language, bool isShown)
{
    QCString wire;
    EMAIL_Util::encode_2047_String(text.text, charsetOf(language), wire);
    benchmark::DoNotOptimize(wire.begin());
    return isShown ? std::string(wire.view()) : std::string();
}

} // namespace bench
