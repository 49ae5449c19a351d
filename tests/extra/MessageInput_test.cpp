// SPDX-License-Identifier: MIT
#include "extra/MessageInput.h"

#include "utility/EMAIL_MIME.h"

#include <QBuffer>
#include <QTemporaryFile>
#include <gtest/gtest.h>

namespace message_input_test {

using namespace tarvomime;

namespace {

const QByteArray kMail = "Subject: x\r\n\r\nHello\r\n";

QString textOf(const EMAIL_MIME& message)
{
    QString text;
    EXPECT_EQ(message.getBody(text, CHARSET_UTF_8), 0);
    return text.trimmed();
}

} // namespace

TEST(MessageInput, StaysInMemoryWhereItIsSmall)
{
    QByteArray bytes = kMail;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    EMAIL_MIME message;
    MessageInput input;
    ASSERT_TRUE(input.read(buffer, message));
    EXPECT_TRUE(message.isBodyInMemory());
    EXPECT_EQ(message.getSubject(CHARSET_UTF_8), "x");
    EXPECT_EQ(textOf(message), "Hello");
    EXPECT_EQ(message.getMessageLength(), kMail.size());
}

TEST(MessageInput, IsSpooledWhereItIsLarge)
{
    QByteArray bytes = kMail + QByteArray(3 << 20, 'x');
    QBuffer buffer(&bytes);
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    EMAIL_MIME message;
    MessageInput input;
    ASSERT_TRUE(input.read(buffer, message, 2 << 20));
    EXPECT_FALSE(message.isBodyInMemory());
    EXPECT_EQ(message.getMessageLength(), bytes.size());
    EXPECT_EQ(textOf(message).size(), 5 + 2 + (3 << 20));
}

TEST(MessageInput, ParsesAFileAtItsPlace)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write(kMail);
    file.flush();
    file.seek(0);
    EMAIL_MIME message;
    MessageInput input;
    ASSERT_TRUE(input.read(file, message));
    QString path;
    int offset = 0;
    int length = 0;
    bool encoded = false;
    message.getBodyInfo(path, offset, length, encoded);
    EXPECT_EQ(path, file.fileName());
    EXPECT_EQ(textOf(message), "Hello");
}

TEST(MessageInput, ReadsTheRestOfAFile)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("From a 10:15\n" + kMail);
    file.flush();
    file.seek(13);
    EMAIL_MIME message;
    MessageInput input;
    ASSERT_TRUE(input.read(file, message));
    EXPECT_EQ(message.getSubject(CHARSET_UTF_8), "x");
}

TEST(MessageInput, RefusesNothing)
{
    QBuffer buffer;
    EMAIL_MIME message;
    MessageInput input;
    const Result<void> closed = input.read(buffer, message);
    EXPECT_FALSE(closed);
    EXPECT_EQ(closed.reason(), "is not open for reading");
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    const Result<void> empty = input.read(buffer, message);
    EXPECT_FALSE(empty);
    EXPECT_EQ(empty.reason(), "is empty");
}

} // namespace message_input_test
