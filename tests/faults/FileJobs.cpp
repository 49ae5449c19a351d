// SPDX-License-Identifier: MIT
#include "tests/faults/FileJobs.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <cstdio>
#include <memory>
#include <ostream>
#include <sys/mman.h>

namespace {

using Work = FileJob::Work;

unsigned long size(const QByteArray& bytes)
{
    return static_cast<unsigned long>(bytes.size());
}

QByteArray raw(const QByteArray& content)
{
    return content;
}

QByteArray inBase64(const QByteArray& content)
{
    return EMAIL_Util::encB64(content.constData(), size(content), 1);
}

QByteArray inQp(const QByteArray& content)
{
    return EMAIL_Util::encQp(content.constData(), size(content), 1);
}

QByteArray asMessage(const QByteArray& content)
{
    return "Content-Type: text/calendar\r\nContent-Transfer-Encoding: base64\r\n\r\n" +
           inBase64(content);
}

QByteArray asTextMessage(const QByteArray& content)
{
    return "Content-Type: text/plain; charset=utf-8\r\nContent-Transfer-Encoding: quoted-printable"
           "\r\n\r\n" +
           inQp(content);
}

QByteArray asMultipart(const QByteArray& content)
{
    return "Content-Type: multipart/alternative; boundary=b\r\n\r\n--b\r\n" +
           asTextMessage(content) + "\r\n--b\r\n" + asMessage(content) + "\r\n--b--\r\n";
}

std::shared_ptr<EMAIL_MIME> parsed(const QString& path)
{
    auto message = std::make_shared<EMAIL_MIME>();
    EXPECT_EQ(message->parse(path), 0);
    return message;
}

template <int encoding, bool isEncoded>
EMAIL_MultiPart partOf(const QString& path, int length)
{
    EMAIL_MultiPart part;
    part.setType(TYPE_TEXT);
    part.setSubTypeStr(QStringLiteral("plain"));
    part.setCTE(encoding);
    part.setCharset(CHARSET_UTF_8);
    part.setBodyInfo(path, 0, length, isEncoded);
    return part;
}

template <int encoding, bool isEncoded = true>
Work savePart(const QString& path, int length)
{
    return [part = partOf<encoding, isEncoded>(path, length)](QFile* out, const auto& callback) {
        return part.getBody(out, callback);
    };
}

template <int encoding>
Work readPart(const QString& path, int length)
{
    return [part = partOf<encoding, true>(path, length)](QFile*, const auto&) {
        QString text(QStringLiteral("kept"));
        const int result = part.getTextBody(text, 0);
        EXPECT_EQ(text == QStringLiteral("kept"), result != 0);
        return result;
    };
}

template <int encoding, bool isEncoded>
Work assemblePart(const QString& path, int length)
{
    auto message = std::make_shared<EMAIL_MIME>();
    message->setTypeStr(QStringLiteral("multipart"));
    message->setSubTypeStr(QStringLiteral("mixed"));
    message->mMessage->mHeader->contentType()->setBoundary("b");
    message->addMultiPart(partOf<encoding, isEncoded>(path, length), 0);
    return [message](QFile* out, const auto&) { return message->assemble(out); };
}

Work assembleMessage(const QString& path, int)
{
    return [message = parsed(path)](QFile* out, const auto&) { return message->assemble(out); };
}

Work saveMessage(const QString& path, int)
{
    return [message = parsed(path)](QFile* out, const auto& callback) {
        return message->getBody(out, callback);
    };
}

Work saveCalendar(const QString& path, int)
{
    return [message = parsed(path)](QFile* out, const auto&) { return message->getICalendar(out); };
}

Work readMessage(const QString& path, int)
{
    return [message = parsed(path)](QFile*, const auto&) {
        QString text(QStringLiteral("kept"));
        const int result = message->getBody(text, 0);
        EXPECT_EQ(text == QStringLiteral("kept"), result != 0);
        return result;
    };
}

Work readStoredText(const QString& path, int length)
{
    return [path, length](QFile*, const auto&) {
        EMAIL_Body body;
        body.setBodyInfo(path, 0, length, true);
        QCString text("kept");
        const int result = body.getBodyText(text);
        EXPECT_EQ(text == "kept", result != 0);
        return result;
    };
}

Work guessEncoding(const QString& path, int length)
{
    return [path, length](QFile*, const auto&) {
        return EMAIL_MultiPart().setBodyInfo(path, 0, length, false);
    };
}

Work parse(const QString& path, int)
{
    return [path](QFile*, const auto&) { return EMAIL_MIME().parse(path); };
}

Work convert(const QString& path, int)
{
    return [path](QFile*, const auto&) {
        EMAIL_MultiPart part;
        bool hasHeader = false;
        return EMAIL_MIME::convertFileToMulitPart(path, part, hasHeader);
    };
}

Work map(const QString& path, int)
{
    return [path](QFile*, const auto&) {
        std::FILE* stream = nullptr;
        char* data = nullptr;
        int length = 0;
        const int result = EMAIL_Util::openBuffer(path, stream, data, length);
        if (result == 0) {
            munmap(data, static_cast<std::size_t>(length));
            std::fclose(stream);
        }
        return result;
    };
}

Work invite(const QString& path, int)
{
    return [path](QFile*, const auto&) {
        EMAIL_MultiPart text;
        EMAIL_MultiPart calendar;
        return EMAIL_MIME::getIcsPart(path, QStringLiteral("Come"), QStringLiteral("REQUEST"),
                                      &text, &calendar);
    };
}

constexpr bool writes = true;
constexpr bool asks = true;

} // namespace

void PrintTo(const FileJob& job, std::ostream* out)
{
    *out << job.name;
}

const std::vector<FileJob>& streamingJobs()
{
    static const std::vector<FileJob> jobs{
        {"save a base64 part", inBase64, savePart<CTE_BASE64>, writes, asks},
        {"save a quoted-printable part", inQp, savePart<CTE_QUOTED_PRINTABLE>, writes, asks},
        {"save an 8bit part", raw, savePart<CTE_8BIT>, writes, asks},
        {"save raw content", raw, savePart<CTE_BASE64, false>, writes, asks},
        {"save the body of a message", asMessage, saveMessage, writes, asks},
        {"save a calendar", asMessage, saveCalendar, writes, false},
        {"assemble a stored part", inBase64, assemblePart<CTE_BASE64, true>, writes, false},
        {"assemble raw content in base64", raw, assemblePart<CTE_BASE64, false>, writes, false},
        {"assemble raw content in quoted-printable", raw, assemblePart<CTE_QUOTED_PRINTABLE, false>,
         writes, false},
        {"assemble raw content in 8bit", raw, assemblePart<CTE_8BIT, false>, writes, false},
        {"assemble a stored message", asMultipart, assembleMessage, writes, false},
        {"read a base64 text", inBase64, readPart<CTE_BASE64>, false, false},
        {"read a quoted-printable text", inQp, readPart<CTE_QUOTED_PRINTABLE>, false, false},
        {"read an 8bit text", raw, readPart<CTE_8BIT>, false, false},
        {"read the text of a message", asTextMessage, readMessage, false, false},
        {"read the stored text of a body", raw, readStoredText, false, false},
    };
    return jobs;
}

const std::vector<FileJob>& mappingJobs()
{
    static const std::vector<FileJob> jobs{
        {"parse a message", asMultipart, parse, false, false},
        {"convert a stored part", asTextMessage, convert, false, false},
        {"map a file", raw, map, false, false},
    };
    return jobs;
}

std::vector<FileJob> allJobs()
{
    std::vector<FileJob> jobs = streamingJobs();
    jobs.insert(jobs.end(), mappingJobs().begin(), mappingJobs().end());
    jobs.push_back({"guess an encoding", raw, guessEncoding, false, false});
    jobs.push_back({"make an invitation", raw, invite, false, false});
    return jobs;
}

QByteArray contentOfSize(int size)
{
    return QByteArray("Some text, and = signs.\r\n").repeated(size / 25 + 1).left(size);
}
