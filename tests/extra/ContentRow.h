// SPDX-License-Identifier: MIT
#pragma once

#include "extra/MessageContent.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

// A message, what a reader sees of it, and what the messages of such rows are built of.

namespace tarvomime::content {

struct ContentRow
{
    const char* name;
    QByteArray mail;
    QString text;
    // The numbers of the parts that are attached, that belong to the HTML, and of the invitation.
    QByteArray attachments;
    QByteArray inlineParts = {};
    QByteArray invitation = {};
};

inline void PrintTo(const ContentRow& row, std::ostream* out)
{
    *out << row.name;
}

inline QByteArray numbers(const MessageContent& content, const QList<int>& parts)
{
    QByteArray joined;
    for (const int part : parts)
        joined += (joined.isEmpty() ? "" : " ") + partNumber(content, part);
    return joined;
}

inline QByteArray container(const QByteArray& type, std::initializer_list<QByteArray> parts)
{
    static int count = 0;
    const QByteArray boundary = "b" + QByteArray::number(++count) + "x";
    QByteArray mail = "Content-Type: " + type + "; boundary=" + boundary + "\n\n";
    for (const QByteArray& part : parts)
        mail += "--" + boundary + '\n' + part + '\n';
    return mail + "--" + boundary + "--\n";
}

inline QByteArray plain(const QByteArray& text)
{
    return "Content-Type: text/plain\n\n" + text;
}

inline QByteArray html(const QByteArray& text)
{
    return "Content-Type: text/html\n\n" + text;
}

inline QByteArray enclosed(const QByteArray& mail)
{
    return "Content-Type: message/rfc822\n\n" + mail;
}

inline const QByteArray kImage = "Content-Type: image/png\nContent-Id: <i@a>\n\nx";
inline const QByteArray kPdf = "Content-Type: application/pdf\n\nx";
inline const QByteArray kCalendar =
    "Content-Type: text/calendar; method=REQUEST\n\nBEGIN:VCALENDAR";
inline const QByteArray kNamed = "Content-Type: text/plain; name=\"a.txt\"\n\nfile";
inline const QByteArray kAttached =
    "Content-Type: text/plain\nContent-Disposition: attachment\n\nfile";

inline void expectContent(const EMAIL_MIME& message, const ContentRow& row)
{
    const MessageContent content = readContent(*message.mMessage);
    const Result<QString> text = shownText(content);
    ASSERT_TRUE(text) << text.reason().toStdString();
    EXPECT_EQ(*text, row.text);
    const ShownMessage& shown = content.messages[0];
    EXPECT_EQ(numbers(content, shown.attachments), row.attachments);
    EXPECT_EQ(numbers(content, shown.inlineParts), row.inlineParts);
    EXPECT_EQ(shown.invitation < 0 ? "" : partNumber(content, shown.invitation), row.invitation);
}

/// The same row in memory and in a file.
inline void expectContent(const ContentRow& row)
{
    expectContent(EMAIL_MIME(row.mail), row);
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.eml");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(row.mail);
    file.close();
    EMAIL_MIME message;
    ASSERT_EQ(message.parse(path), 0);
    expectContent(message, row);
}

} // namespace tarvomime::content
