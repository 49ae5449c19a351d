// SPDX-License-Identifier: MIT
#include "bench/messages/Library.h"

#include <KCodecs>
#include <KMime/Message>
#include <QFile>
#include <benchmark/benchmark.h>
#include <kmime/kmime_util.h>

namespace bench {

namespace {

void readParts(KMime::Content& top, Findings& found)
{
    std::vector<KMime::Content*> waiting{&top};
    while (!waiting.empty()) {
        KMime::Content* part = waiting.back();
        waiting.pop_back();
        const auto children = part->contents();
        if (children.isEmpty())
            ++found.parts;
        if (const auto* type = part->contentType(false))
            found.names += type->name().isEmpty() ? 0 : 1;
        for (KMime::Content* child : children)
            waiting.push_back(child);
    }
}

void parse(KMime::Message& message, const QByteArray& bytes)
{
    message.setContent(KMime::CRLFtoLF(bytes));
    message.parse();
}

Findings readAll(KMime::Message& message)
{
    Findings found;
    if (auto* from = message.from(false))
        benchmark::DoNotOptimize(from->asUnicodeString().constData());
    if (auto* to = message.to(false))
        benchmark::DoNotOptimize(to->asUnicodeString().constData());
    if (auto* subject = message.subject(false))
        found.subjectLength = static_cast<std::size_t>(subject->asUnicodeString().size());
    if (auto* date = message.date(false))
        found.date = date->dateTime().toSecsSinceEpoch();
    readParts(message, found);
    return found;
}

QByteArray contentOf(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray asBytes(const std::string& text)
{
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

} // namespace

bool canDo(Job job)
{
    return job != Job::ParseInPlace;
}

Findings parseAndRead(const std::string& text)
{
    KMime::Message message;
    parse(message, asBytes(text));
    return readAll(message);
}

Findings parseFile(const std::string& path)
{
    KMime::Message message;
    parse(message, contentOf(path));
    return readAll(message);
}

bool saveAttachment(const std::string& path, const std::string& to)
{
    KMime::Message message;
    parse(message, contentOf(path));
    QFile file(QString::fromStdString(to));
    const QByteArray bytes = message.contents().value(1)->decodedContent();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

std::size_t buildMessage(const std::vector<std::string>& attachments)
{
    KMime::Message message;
    message.from()->from7BitString("joerg@example.org");
    message.to()->from7BitString("anna@example.com");
    message.subject()->from7BitString("Minutes of the meeting");
    message.date()->from7BitString("Tue, 12 Nov 2024 10:00:00 +0100");
    message.contentType()->setMimeType("multipart/mixed");
    message.contentType()->setBoundary(KMime::multiPartBoundary());
    for (const std::string& attachment : attachments) {
        auto* part = new KMime::Content;
        part->contentType()->setMimeType("application/octet-stream");
        part->contentTransferEncoding()->setEncoding(KMime::Headers::CEbase64);
        part->contentDisposition()->from7BitString("attachment; filename=figures.bin");
        part->setBody(asBytes(attachment));
        message.addContent(part);
    }
    message.assemble();
    return static_cast<std::size_t>(message.encodedContent(true).size());
}

std::string decodeSubject(const std::string& wire, bool isShown)
{
    const QString text = KCodecs::decodeRFC2047String(
        QString::fromLatin1(wire.data(), static_cast<int>(wire.size())));
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
    const QByteArray wire = KCodecs::encodeRFC2047String(text.text, charsetName(language));
    benchmark::DoNotOptimize(wire.constData());
    return isShown ? wire.toStdString() : std::string();
}

} // namespace bench
