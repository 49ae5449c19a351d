// SPDX-License-Identifier: MIT
#include "extra/HeadlessPart.h"

#include "tests/support/RowNames.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

#include <QTemporaryFile>

namespace headless_part_test {

using namespace tarvomime;

namespace {

QByteArray withPart(const QByteArray& part)
{
    return "Content-Type: multipart/mixed; boundary=b\r\n\r\n--b\r\n" + part + "\r\n--b--\r\n";
}

QByteArray textOf(const EMAIL_MIME& message)
{
    const EMAIL_Entity& part = *message.mMessage->mBody->bodyPart(0);
    const QCString& body = part.mBody->mString;
    return headlessText(part, QByteArray(body.begin(), body.length()));
}

struct PartRow
{
    const char* name;
    const char* part;
    bool headless;
};

void PrintTo(const PartRow& row, std::ostream* out)
{
    *out << row.part;
}

class HeadlessPart : public testing::TestWithParam<PartRow>
{
};

} // namespace

TEST_P(HeadlessPart, IsTold)
{
    const EMAIL_MIME message(withPart(GetParam().part));
    ASSERT_EQ(message.mMessage->mBody->numBodyParts(), 1);
    EXPECT_EQ(isHeadless(*message.mMessage->mBody->bodyPart(0)), GetParam().headless);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, HeadlessPart,
    testing::Values(
        PartRow{"Header", "Subject: a\r\n\r\ntext", false}, PartRow{"OneLine", "\r\ntext", true},
        PartRow{"LineWithoutColon", "\r\ntext\r\n\r\nmore", false},
        PartRow{"SentenceWithAColon", "\r\nThe message was received at 10:15\r\n\r\nmore", true},
        PartRow{"FieldOfOneWord", "\r\nNote: a\r\n\r\nmore", false},
        PartRow{"SaysWhatItIs", "\r\nSome words: a\r\nContent-Type: text/html\r\n\r\nmore", false}),
    rowName<PartRow>);

TEST(HeadlessMessage, IsNone)
{
    const EMAIL_MIME message(QByteArray("Some words: a\r\n\r\ntext\r\n"));
    EXPECT_FALSE(isHeadless(*message.mMessage));
}

// What parsing cut in two is put together again, with the line ends between, in memory and in a
// file.
TEST(HeadlessText, IsWhole)
{
    const QByteArray text = "Received at 10:15\r\n\r\n\r\nmore\r\nand more";
    const QByteArray bytes = withPart("\r\n" + text);
    const EMAIL_MIME inMemory(bytes);
    EXPECT_EQ(textOf(inMemory).trimmed(), text);
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write(bytes);
    file.flush();
    EMAIL_MIME stored;
    QString path = file.fileName();
    ASSERT_EQ(stored.parse(path), 0);
    const EMAIL_Entity& part = *stored.mMessage->mBody->bodyPart(0);
    ASSERT_FALSE(part.mBody->mInMemory);
    EXPECT_EQ(headlessText(part, bytes.mid(part.mBody->mOffset, part.mBody->mLength)).trimmed(),
              text);
    EXPECT_EQ(headlessText(part, "").trimmed(), "Received at 10:15");
}

} // namespace headless_part_test
