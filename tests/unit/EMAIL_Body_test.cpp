// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Body.h"

#include "tests/support/BodyOwner.h"
#include "utility/EMAIL_BodyPart.h"

#include <limits>
#include <vector>

namespace email_body_test {

namespace {

const QString anyPath = QStringLiteral("/a/file");

} // namespace

TEST(EMAIL_Body, StartsEmptyInMemory)
{
    EMAIL_Message parent;
    const EMAIL_Body body(QCString("text"), &parent);
    for (const EMAIL_Body* each : {static_cast<const EMAIL_Body*>(parent.mBody), &body}) {
        EXPECT_TRUE(each->isInMemory());
        EXPECT_TRUE(each->mEncoded);
        EXPECT_TRUE(each->mBodyParts.autoDelete());
        EXPECT_EQ(each->numBodyParts(), 0);
        EXPECT_EQ(each->mMessage, nullptr);
        EXPECT_EQ(each->mOffset, 0);
        EXPECT_EQ(each->mLength, 0);
        EXPECT_TRUE(each->mFile.isEmpty());
        EXPECT_TRUE(each->mBoundary.isEmpty());
        EXPECT_EQ(each->mParent, &parent);
    }
    EXPECT_EQ(body.getMessage(), "text");
}

TEST(EMAIL_Body, SwitchesBetweenMemoryAndFile)
{
    EMAIL_Body body;
    body.setBodyInfo(anyPath, 5, 7, false);
    QString path;
    int offset = 0;
    int length = 0;
    bool encoded = true;
    body.getBodyInfo(path, offset, length, encoded);
    EXPECT_FALSE(body.isInMemory());
    EXPECT_EQ(path, anyPath);
    EXPECT_EQ(offset, 5);
    EXPECT_EQ(length, 7);
    EXPECT_FALSE(encoded);

    body.setMessage("four");
    EXPECT_TRUE(body.isInMemory());
    EXPECT_TRUE(body.mEncoded);
    EXPECT_EQ(body.getMessage(), "four");
    body.getBodyInfo(path, offset, length, encoded);
    EXPECT_EQ(length, 4);
    EXPECT_EQ(offset, 5) << "left as it was";
}

// What the steps of a parse leave of a text, in memory and in a file.
namespace {

struct TextRow
{
    const char* name;
    const char* type;
    QByteArray text;
    QCString inMemory;
    QCString inFile;
};

void PrintTo(const TextRow& row, std::ostream* out)
{
    *out << row.name;
}

class BodyText : public testing::TestWithParam<TextRow>
{
};

} // namespace

TEST_P(BodyText, InMemory)
{
    BodyOwner owner(GetParam().type);
    owner.mBody->setMessage(GetParam().text);
    owner.mBody->parse();
    EXPECT_EQ(owner.mBody->getMessage(), GetParam().inMemory);
    EXPECT_EQ(owner.mBody->mLength, int(GetParam().text.size())) << "as it was set";
    EXPECT_TRUE(owner.mBody->isInMemory());
}

TEST_P(BodyText, InAFile)
{
    BodyOwner owner(GetParam().type);
    const QByteArray content = "\r\n" + GetParam().text + "\r\n";
    owner.mBody->setBodyInfo(QStringLiteral("/other"), 0, 0, false);
    owner.mBody->parse(content.constData(), 2, int(GetParam().text.size()), anyPath);
    const EMAIL_Body& body = *owner.mBody;
    EXPECT_EQ(content.mid(body.mOffset, body.mLength), GetParam().inFile);
    EXPECT_FALSE(body.isInMemory());
    EXPECT_TRUE(body.mEncoded);
    EXPECT_EQ(body.mFile, anyPath);
    EXPECT_EQ(body.mMessage, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BodyText,
    testing::Values(TextRow{"text", "text/plain", "\r\n\r\nHello\r\n\r\n", "Hello", "Hello"},
                    TextRow{"without a type", nullptr, "\r\n\r\nHello\r\n\r\n",
                            "\r\n\r\nHello\r\n\r\n", "\r\n\r\nHello\r\n\r\n"},
                    TextRow{"white space stays", "text/plain", "\n \tHello\t \n", " \tHello\t ",
                            " \tHello\t "},
                    TextRow{"lone CR goes", "text/plain", "\r\rHello\r", "Hello", "Hello"},
                    TextRow{"line breaks only", "image/png", "\r\n\n\r", "", ""},
                    TextRow{"empty", "text/plain", "", "", ""},
                    TextRow{"message", "message/rfc822", "\r\n\r\nA: 1\r\n\r\n",
                            "\r\n\r\nA: 1\r\n\r\n", "A: 1"},
                    TextRow{"multipart", "multipart/mixed; boundary=b", "\n--b\nA: 1\n--b--\n",
                            "\n--b\nA: 1\n--b--\n", "\n--b\nA: 1\n--b--\n"}));

TEST(EMAIL_Body, ParseWithoutAnEntityAboveKeepsTheText)
{
    EMAIL_Body alone(QCString("\nx\n"), nullptr);
    alone.parse();
    EXPECT_EQ(alone.getMessage(), "\nx\n");
    BodyOwner owner("text/plain");
    EMAIL_Body below(QCString("\nx\n"), owner.mHeader);
    below.parse();
    EXPECT_EQ(below.getMessage(), "\nx\n");
}

// A body in memory without text narrows the range that it kept from another time, as long as that
// lies inside the given bytes.
namespace {

struct RangeRow
{
    const char* name;
    int offset;
    int length;
    int start;
    int given;
    int narrowedOffset;
    int narrowedLength;
};

void PrintTo(const RangeRow& row, std::ostream* out)
{
    *out << row.name;
}

class KeptRange : public testing::TestWithParam<RangeRow>
{
};

constexpr int maxInt = std::numeric_limits<int>::max();

} // namespace

TEST_P(KeptRange, IsNarrowedInsideTheGivenBytes)
{
    // A heap block of exact size, so that a read outside is noticed by the sanitizers.
    const QByteArray source("\n\r\nab\r\n\n");
    const std::vector<char> data(source.begin(), source.end());
    BodyOwner owner("text/plain");
    owner.mBody->setBodyInfo(anyPath, GetParam().offset, GetParam().length, true);
    owner.mBody->parse(data.data(), GetParam().start, GetParam().given, QString());
    EXPECT_TRUE(owner.mBody->isInMemory());
    EXPECT_EQ(owner.mBody->mOffset, GetParam().narrowedOffset);
    EXPECT_EQ(owner.mBody->mLength, GetParam().narrowedLength);
}

INSTANTIATE_TEST_SUITE_P(Rows, KeptRange,
                         testing::Values(RangeRow{"whole", 0, 8, 0, 8, 3, 2},
                                         RangeRow{"inner", 2, 3, 0, 8, 3, 2},
                                         RangeRow{"only line breaks", 5, 3, 0, 8, 8, 0},
                                         RangeRow{"no length", 2, 0, 0, 8, 2, 0},
                                         RangeRow{"negative length", 2, -3, 0, 8, 2, -3},
                                         RangeRow{"negative offset", -2, 4, 0, 8, -2, 4},
                                         RangeRow{"behind the end", 9, 1, 0, 8, 9, 1},
                                         RangeRow{"across the end", 5, 4, 0, 8, 5, 4},
                                         RangeRow{"in front of the given bytes", 1, 4, 2, 6, 1, 4},
                                         RangeRow{"sum past the largest number", maxInt - 2,
                                                  maxInt - 2, 0, 8, maxInt - 2, maxInt - 2}));

TEST(EMAIL_Body, RefusesToReadAnImpossibleRange)
{
    for (const int start : {-1, 1, maxInt}) {
        BodyOwner owner("multipart/mixed; boundary=b");
        const int length = start == 1 ? -1 : maxInt;
        owner.mBody->parse("--b\n", start, length, anyPath);
        EXPECT_EQ(owner.mBody->numBodyParts(), 0);
        EXPECT_EQ(owner.mBody->mLength, 0);
    }
}

TEST(EMAIL_Body, CutsTheTextOfTheExample)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    owner.mBody->setMessage(
        "preamble\r\n--b\r\nX: 1\r\n\r\none\r\n--b\r\n\r\n\r\n--b--\r\nepilogue");
    owner.mBody->parse();
    ASSERT_EQ(owner.mBody->numBodyParts(), 1);
    const EMAIL_BodyPart* part = owner.mBody->bodyPart(0);
    EXPECT_EQ(part->getMessage(), "X: 1\r\n\r\none");
    EXPECT_EQ(part->mParent, owner.mBody);
    EXPECT_EQ(part->mBody->getMessage(), "one");
    EXPECT_EQ(owner.mBody->mBoundary, "b");
    EXPECT_EQ(owner.mBody->assemble(nullptr), 0);
    EXPECT_EQ(owner.mBody->getMessage(), "--b\r\nX: 1\r\n\r\none\r\n--b--\r\n");
}

TEST(EMAIL_Body, PartsInAFileStayThere)
{
    const QByteArray content("xx\n--b\nX: 1\n\none\n--b--\n");
    BodyOwner owner("multipart/mixed; boundary=b");
    owner.mBody->parse(content.constData(), 2, int(content.size()) - 2, anyPath);
    ASSERT_EQ(owner.mBody->numBodyParts(), 1);
    const EMAIL_BodyPart* part = owner.mBody->bodyPart(0);
    EXPECT_EQ(part->getMessage(), "");
    EXPECT_FALSE(part->mBody->isInMemory());
    EXPECT_EQ(part->mBody->mFile, anyPath);
    EXPECT_EQ(part->mBody->mOffset, 13);
    EXPECT_EQ(part->mBody->mLength, 3);
}

TEST(EMAIL_Body, InMemoryCutsItsOwnTextWhateverIsGiven)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    owner.mBody->setMessage("--b\nX: 1\n--b--");
    owner.mBody->parse("--b\nY: 2\n--b\nZ: 3\n--b--", 0, 23, QString());
    ASSERT_EQ(owner.mBody->numBodyParts(), 1);
    EXPECT_EQ(owner.mBody->bodyPart(0)->getMessage(), "X: 1");
}

TEST(EMAIL_Body, ParsingAgainKeepsTheParts)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    owner.mBody->setMessage("--b\nX: 1\n--b--");
    owner.mBody->parse();
    const EMAIL_BodyPart* first = owner.mBody->bodyPart(0);
    owner.mBody->parse();
    EXPECT_EQ(owner.mBody->numBodyParts(), 2);
    EXPECT_EQ(owner.mBody->bodyPart(0), first);
}

TEST(EMAIL_Body, ParsingAgainReplacesTheEnclosedMessage)
{
    BodyOwner owner("message/rfc822");
    owner.mBody->setMessage("A: 1\n\none");
    owner.mBody->parse();
    owner.mBody->setMessage("B: 2\n\ntwo");
    owner.mBody->parse();
    ASSERT_NE(owner.mBody->mMessage, nullptr);
    EXPECT_EQ(owner.mBody->mMessage->mBody->getMessage(), "two");
    EXPECT_EQ(owner.mBody->mMessage->mParent, owner.mBody);
}

TEST(EMAIL_Body, EveryTextBelowIsASliceOfOneBuffer)
{
    EMAIL_Message message(QCString("Content-Type: multipart/mixed; boundary=b\n\n--b\n"
                                   "Content-Type: message/rfc822\n\nA: 1\n\ntext\n--b--\n"),
                          nullptr);
    message.parse();
    const char* begin = message.getMessage().begin();
    const auto offsetOf = [begin](const QCString& text) { return int(text.begin() - begin); };
    const EMAIL_BodyPart* part = message.mBody->bodyPart(0);
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(offsetOf(message.mBody->getMessage()), 43);
    EXPECT_EQ(offsetOf(part->getMessage()), 47);
    EXPECT_EQ(offsetOf(part->mBody->getMessage()), 77);
    ASSERT_NE(part->mBody->mMessage, nullptr);
    EXPECT_EQ(offsetOf(part->mBody->mMessage->getMessage()), 77);
    EXPECT_EQ(offsetOf(part->mBody->mMessage->mBody->getMessage()), 83);
}

TEST(EMAIL_Body, GivesPartsByIndex)
{
    EMAIL_Body body;
    auto* a = new EMAIL_BodyPart;
    auto* b = new EMAIL_BodyPart;
    auto* c = new EMAIL_BodyPart;
    auto* d = new EMAIL_BodyPart;
    EXPECT_TRUE(body.insertBodyPart(b, 0));
    EXPECT_TRUE(body.insertBodyPart(c, -1)) << "appends";
    EXPECT_TRUE(body.insertBodyPart(a, 0));
    EXPECT_TRUE(body.insertBodyPart(d, 99)) << "appends";
    EXPECT_FALSE(body.insertBodyPart(nullptr, 0));
    ASSERT_EQ(body.numBodyParts(), 4);
    int index = 0;
    for (EMAIL_BodyPart* part : {a, b, c, d}) {
        EXPECT_EQ(body.bodyPart(index++), part);
        EXPECT_EQ(part->mParent, &body);
    }
    EXPECT_EQ(body.bodyPart(4), nullptr) << "the count itself";
    EXPECT_EQ(body.bodyPart(5), nullptr);
    EXPECT_EQ(body.bodyPart(-1), nullptr);
    EXPECT_FALSE(body.removeBodyPart(4));
    EXPECT_FALSE(body.removeBodyPart(5));
    EXPECT_FALSE(body.removeBodyPart(-1));
    EXPECT_TRUE(body.removeBodyPart(1));
    EXPECT_EQ(body.numBodyParts(), 3);
    EXPECT_EQ(body.bodyPart(1), c);
    EXPECT_TRUE(body.insertBodyPart(new EMAIL_BodyPart, 3)) << "the count itself";
}

TEST(EMAIL_Body, DeletesTheEnclosedMessageThenTheParts)
{
    std::vector<int> deaths;
    struct Mortal
    {
        std::vector<int>& list;
        int number;
        ~Mortal() { list.push_back(number); }
    };
    struct Part : EMAIL_BodyPart
    {
        Part(std::vector<int>& list, int number) : mortal{list, number} {}
        Mortal mortal;
    };
    struct Message : EMAIL_Message
    {
        Message(std::vector<int>& list, int number) : mortal{list, number} {}
        Mortal mortal;
    };
    {
        EMAIL_Body body;
        for (const int number : {1, 2, 3})
            body.insertBodyPart(new Part(deaths, number), -1);
        body.mMessage = new Message(deaths, 0);
    }
    EXPECT_EQ(deaths, (std::vector<int>{0, 1, 2, 3}));
    Part kept(deaths, 4);
    {
        EMAIL_Body body;
        body.mBodyParts.setAutoDelete(false);
        body.insertBodyPart(&kept, 0);
    }
    EXPECT_EQ(deaths.size(), 4U) << "a list that does not own its parts keeps them alive";
}

} // namespace email_body_test
