// SPDX-License-Identifier: MIT
// What the walk leaves in each component; how texts are cut is shown by the golden trees.
#include "utility/tree/TreeParser.h"

#include "tests/support/StoredFile.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <climits>

namespace tree_parser_test {

namespace {

using namespace tarvomime;

const QByteArray twoParts = "Content-Type: multipart/mixed; boundary=b\n\n"
                            "--b\nSubject: one\n\nfirst\n--b\nSubject: two\n\nsecond\n--b--\n";

} // namespace

TEST(TreeParser, GivesEveryComponentASliceOfOneText)
{
    const QCString text(twoParts);
    EMAIL_Message message(text, nullptr);
    parseEntity(message, text.begin(), 0, text.length(), QString());
    ASSERT_EQ(message.mBody->numBodyParts(), 2);
    for (int i = 0; i < 2; ++i) {
        const QCString& part = message.mBody->bodyPart(i)->mBody->mString;
        EXPECT_GE(part.begin(), text.begin());
        EXPECT_LE(part.end(), text.end());
    }
    EXPECT_EQ(message.mBody->bodyPart(0)->mHeader->getSubject(), "one");
    EXPECT_EQ(message.mBody->bodyPart(1)->mBody->mString, "second");
}

TEST(TreeParser, LeavesBodiesOfAFileThere)
{
    const StoredFile file(twoParts);
    EMAIL_Message message;
    parseEntity(message, twoParts.constData(), 0, int(twoParts.size()), file.path());
    ASSERT_EQ(message.mBody->numBodyParts(), 2);
    const EMAIL_Body& first = *message.mBody->bodyPart(0)->mBody;
    EXPECT_FALSE(first.mInMemory);
    EXPECT_EQ(first.mFile, file.path());
    EXPECT_EQ(twoParts.mid(first.mOffset, first.mLength), "first");
}

struct RangeRow
{
    int start;
    int length;
};

class RangesThatCannotBe : public testing::TestWithParam<RangeRow>
{
};

TEST_P(RangesThatCannotBe, AreNoText)
{
    EMAIL_Message message;
    parseEntity(message, twoParts.constData(), GetParam().start, GetParam().length,
                QStringLiteral("path"));
    EXPECT_EQ(message.mHeader->mFields.count(), 0);
    EXPECT_EQ(message.mBody->numBodyParts(), 0);
}

INSTANTIATE_TEST_SUITE_P(Rows, RangesThatCannotBe,
                         testing::Values(RangeRow{-1, 10}, RangeRow{0, -1}, RangeRow{0, 0},
                                         RangeRow{INT_MAX, INT_MAX}, RangeRow{1, INT_MAX}));

TEST(TreeParser, ParsesABodyAsItsEntitySays)
{
    EMAIL_Message owner;
    owner.mHeader->setMessage("Content-Type: multipart/mixed; boundary=b\n");
    owner.mHeader->parse();
    const QCString text("--b\nA: 1\n\nx\n--b--\n");
    owner.mBody->setMessage(text);
    parseBody(*owner.mBody, text.begin(), 0, text.length(), QString());
    ASSERT_EQ(owner.mBody->numBodyParts(), 1);
    EXPECT_EQ(owner.mBody->bodyPart(0)->mBody->mString, "x");
}

// A header of the caller's in front of a body of its own.
TEST(TreeParser, TakesTheHeaderFromGivenBytesAndTheBodyFromItsOwnText)
{
    const QByteArray given = "Subject: s\n\nnot this";
    EMAIL_Message message(QCString("Sender: nobody\n\nthe body"), nullptr);
    parseEntity(message, given.constData(), 0, int(given.size()), QString());
    EXPECT_EQ(message.mHeader->getMessage(), "Subject: s\n");
    EXPECT_EQ(message.mHeader->getSubject(), "s");
    EXPECT_EQ(message.mBody->mString, message.mString.mid(given.indexOf("not")));
    EXPECT_EQ(message.mString, "Sender: nobody\n\nthe body");
}

TEST(TreeParser, ABodyOfAnotherEntityIsWhatThatOneSays)
{
    EMAIL_Message other;
    other.mHeader->setMessage("Content-Type: text/plain\n");
    other.mHeader->parse();
    EMAIL_Message message(QCString(twoParts), nullptr);
    message.mBody->mParent = &other;
    message.parse();
    EXPECT_EQ(message.mBody->numBodyParts(), 0);
    message.mBody->mParent = nullptr;
    message.parse();
    EXPECT_EQ(message.mBody->numBodyParts(), 0) << "nobody says what it is";
    message.mBody->mParent = &message;
    message.parse();
    EXPECT_EQ(message.mBody->numBodyParts(), 2);
}

struct KeptRow
{
    const char* type;
    int length;
};

class KeptRange : public testing::TestWithParam<KeptRow>
{
};

// A body that lies in a file and is parsed again over bytes in memory.
TEST_P(KeptRange, LosesItsLineBreaksWhereItIsPlain)
{
    const QByteArray bytes = "..body\r\n..";
    EMAIL_Message owner;
    if (GetParam().type != nullptr)
        owner.mHeader->setMessage("Content-Type: " + QByteArray(GetParam().type) + "\n");
    owner.mHeader->parse();
    owner.mBody->setBodyInfo(QStringLiteral("path"), 2, 6, true);
    parseBody(*owner.mBody, bytes.constData(), 0, int(bytes.size()), QString());
    EXPECT_EQ(owner.mBody->mOffset, 2);
    EXPECT_EQ(owner.mBody->mLength, GetParam().length);
    owner.mBody->mParent = nullptr;
    owner.mBody->mLength = 6;
    parseBody(*owner.mBody, bytes.constData(), 0, int(bytes.size()), QString());
    EXPECT_EQ(owner.mBody->mLength, 6) << "nobody says what it is";
}

INSTANTIATE_TEST_SUITE_P(Rows, KeptRange,
                         testing::Values(KeptRow{"text/plain", 4}, KeptRow{nullptr, 6},
                                         KeptRow{"message/rfc822", 6},
                                         KeptRow{"multipart/mixed; boundary=b", 6}));

} // namespace tree_parser_test
