// SPDX-License-Identifier: MIT
#include "utility/tree/StoredBody.h"

#include "tests/support/RecordingFile.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_Numbers.h"

namespace stored_body_test {

namespace {

using namespace tarvomime;

struct Parsed : EMAIL_Message
{
    explicit Parsed(const QCString& text) : EMAIL_Message(text, nullptr) { parse(); }
};

QString textOf(const EMAIL_Entity& part, int charset)
{
    QString text = QStringLiteral("before");
    readText(part, charset, text);
    return text;
}

} // namespace

TEST(StoredBody, LiesInMemoryOrInItsFile)
{
    const StoredFile file("0123456789");
    EMAIL_Body body("text", nullptr);
    EXPECT_TRUE(storedBytes(body).isInMemory());
    EXPECT_EQ(storedBytes(body).view(), "text");
    body.setBodyInfo(file.path(), 2, 3, true);
    EXPECT_FALSE(storedBytes(body).isInMemory());
    EXPECT_EQ(storedBytes(body).all(), QByteArray("234"));
}

TEST(ReadText, DecodesAsTheHeaderSays)
{
    const Parsed named("Content-Type: text/plain; charset=iso-8859-1\r\n"
                       "Content-Transfer-Encoding: base64\r\n\r\n5A==");
    EXPECT_EQ(textOf(named, CHARSET_UTF_8), QStringLiteral("\u00e4"));
    const Parsed nameless("Content-Transfer-Encoding: quoted-printable\r\n\r\n=E4");
    EXPECT_EQ(textOf(nameless, CHARSET_ISO_8859_1), QStringLiteral("\u00e4"));
}

TEST(ReadText, LeavesTheTextOfAContainerAndOfAnEmptyBodyAlone)
{
    const Parsed container(
        "Content-Type: multipart/mixed; boundary=b\r\n\r\n--b\r\n\r\nx\r\n--b--");
    const Parsed empty("Content-Type: text/plain\r\n\r\n");
    EXPECT_EQ(textOf(container, CHARSET_UTF_8), QStringLiteral("before"));
    EXPECT_EQ(textOf(empty, CHARSET_UTF_8), QStringLiteral("before"));
}

TEST(WriteContent, DecodesWhatIsEncoded)
{
    const Parsed part("Content-Transfer-Encoding: base64\r\n\r\nYWJj");
    RecordingFile out;
    EXPECT_EQ(writeContent(part, &out), 0);
    EXPECT_EQ(out.written(), "abc");
    EXPECT_EQ(writeContent(part, nullptr), -1);
}

TEST(WriteContent, CopiesRawContentOfAFile)
{
    const StoredFile file("YWJj");
    const Parsed part("Content-Transfer-Encoding: base64\r\n\r\n");
    part.mBody->setBodyInfo(file.path(), 0, 4, false);
    RecordingFile out;
    EXPECT_EQ(writeContent(part, &out), 0);
    EXPECT_EQ(out.written(), "YWJj") << "an attached file is not encoded yet";
}

} // namespace stored_body_test
