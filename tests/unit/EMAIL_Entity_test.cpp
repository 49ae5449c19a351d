// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <QTemporaryFile>
#include <type_traits>

namespace email_entity_test {

namespace {

struct SplitRow
{
    const char* name;
    QByteArray text;
    QCString header;
    QCString body;
};

void PrintTo(const SplitRow& row, std::ostream* out)
{
    *out << row.name << ": ";
    printEscaped(row.text, out);
}

class EntitySplit : public testing::TestWithParam<SplitRow>
{
};

} // namespace

TEST_P(EntitySplit, InMemory)
{
    EMAIL_Message message(GetParam().text, nullptr);
    message.parse();
    EXPECT_EQ(message.mHeader->getMessage(), GetParam().header);
    EXPECT_EQ(message.mBody->getMessage(), GetParam().body);
    EXPECT_TRUE(message.mBody->isInMemory());
}

TEST_P(EntitySplit, InAFile)
{
    const QByteArray padded = "XX" + GetParam().text + "YY";
    EMAIL_Message message;
    message.parse(padded.constData(), 2, int(GetParam().text.size()), QStringLiteral("/a/file"));
    EXPECT_EQ(message.mHeader->getMessage(), GetParam().header);
    const EMAIL_Body& body = *message.mBody;
    EXPECT_EQ(body.getMessage(), "");
    EXPECT_EQ(body.mLength, GetParam().body.length());
    EXPECT_EQ(body.isInMemory(), GetParam().body.isEmpty()) << "no bytes remain, nothing is set";
    if (!body.isInMemory()) {
        EXPECT_EQ(QCString(padded.constData() + body.mOffset, body.mLength), GetParam().body);
        EXPECT_EQ(body.mFile, QStringLiteral("/a/file"));
        EXPECT_TRUE(body.mEncoded);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EntitySplit,
    testing::Values(
        SplitRow{"CR LF", "A: 1\r\n\r\nbody", "A: 1\r\n", "body"},
        SplitRow{"LF", "A: 1\n\nbody", "A: 1\n", "body"},
        SplitRow{"line breaks in front", "\r\n\n\r\rA: 1\r\n\r\nbody", "A: 1\r\n", "body"},
        SplitRow{"all header", "A: 1\r\nB: 2\r\n", "A: 1\r\nB: 2\r\n", ""},
        SplitRow{"unterminated header line", "A: 1\r\nB: 2", "A: 1\r\nB: 2", ""},
        SplitRow{"unterminated line without a colon", "A: 1\r\nplain", "A: 1\r\nplain", ""},
        SplitRow{"one line without a colon or end", "plain", "plain", ""},
        SplitRow{"no header", "plain\r\nA: 1\r\n", "", "plain\r\nA: 1\r\n"},
        SplitRow{"line without a colon ends it", "A: 1\r\nplain\r\nmore", "A: 1\r\n",
                 "plain\r\nmore"},
        SplitRow{"folded by a space", "A: 1\r\n 2\r\n\r\nbody", "A: 1\r\n 2\r\n", "body"},
        SplitRow{"folded by a tab", "A: 1\n\t2\n\nbody", "A: 1\n\t2\n", "body"},
        SplitRow{"continuation comes first", " 1\r\n\r\nbody", " 1\r\n", "body"},
        SplitRow{"line of white space goes on", "A: 1\n \nB: 2\n\nbody", "A: 1\n \nB: 2\n", "body"},
        SplitRow{"colon anywhere", "x y:z\n\nbody", "x y:z\n", "body"},
        SplitRow{"LF then CR LF", "A: 1\n\r\nbody", "A: 1\n", "body"},
        SplitRow{"CR LF then LF", "A: 1\r\n\nbody", "A: 1\r\n", "body"},
        SplitRow{"LF and CR LF are one separator", "A: 1\n\n\r\nbody", "A: 1\n", "body"},
        SplitRow{"only one blank line is the separator", "A: 1\r\n\r\n\r\nbody", "A: 1\r\n",
                 "\r\nbody"},
        SplitRow{"a lone CR ends no line", "A: 1\rplain\n\nbody", "A: 1\rplain\n", "body"},
        SplitRow{"line of a lone CR", "A: 1\n\r\r\nbody", "A: 1\n", "\r\r\nbody"},
        SplitRow{"separator at the end", "A: 1\r\n\r\n", "A: 1\r\n", ""},
        SplitRow{"CR at the end", "A: 1\r\n\r", "A: 1\r\n\r", ""},
        SplitRow{"only line breaks", "\r\n\r\n\n", "", ""}, SplitRow{"empty", "", "", ""}));

TEST(EMAIL_Entity, HeaderTextInAFileEndsAtItsFirstNul)
{
    const QByteArray text("A: 1\r\nB: \0 2\r\nC: 3\r\n\r\nbody", 26);
    EMAIL_Message message;
    message.parse(text.constData(), 0, int(text.size()), QStringLiteral("/a/file"));
    EXPECT_EQ(message.mHeader->getMessage(), "A: 1\r\nB: ");
    EXPECT_EQ(message.mHeader->mFields.count(), 2);
    EXPECT_EQ(message.mBody->mOffset, 22) << "offsets go on across it";
    EXPECT_EQ(message.mBody->mLength, 4);
}

TEST(EMAIL_Entity, HeaderAndBodyAreSlicesOfTheText)
{
    EMAIL_Message message(QCString("A: 1\r\nX-Own: 2\r\n\r\nbody"), nullptr);
    message.parse();
    const char* text = message.getMessage().begin();
    EXPECT_EQ(static_cast<const void*>(message.mHeader->getMessage().begin()), text);
    EXPECT_EQ(static_cast<const void*>(message.mBody->getMessage().begin()), text + 18);
    const EMAIL_Field* field = message.mHeader->mFields.at(1);
    EXPECT_EQ(static_cast<const void*>(field->getMessage().begin()), text + 6);
    EXPECT_EQ(static_cast<const void*>(field->mName.begin()), text + 6);
    EXPECT_EQ(static_cast<const void*>(field->mBody.begin()), text + 13);
}

TEST(EMAIL_Entity, EveryConstructorMakesHeaderAndBody)
{
    EMAIL_Message parent;
    const EMAIL_BodyPart part(QCString("text"), &parent);
    ASSERT_NE(part.mHeader, nullptr);
    ASSERT_NE(part.mBody, nullptr);
    EXPECT_EQ(part.mHeader->mParent, &part);
    EXPECT_EQ(part.mBody->mParent, &part);
    EXPECT_EQ(part.mParent, &parent);
    EXPECT_EQ(part.getMessage(), "text");
    EXPECT_EQ(part.mHeader->getMessage(), "");
    EXPECT_EQ(parent.mParent, nullptr);
    EXPECT_TRUE(parent.getMessage().isNull());
    const EMAIL_BodyPart empty;
    ASSERT_NE(empty.mHeader, nullptr);
    ASSERT_NE(empty.mBody, nullptr);
    EXPECT_EQ(empty.mBody->mParent, &empty);
}

TEST(EMAIL_Entity, TopAndPartAreDistinctTypes)
{
    EXPECT_FALSE((std::is_base_of_v<EMAIL_Message, EMAIL_BodyPart>));
    EXPECT_FALSE((std::is_base_of_v<EMAIL_BodyPart, EMAIL_Message>));
    EXPECT_EQ(sizeof(EMAIL_Message), sizeof(EMAIL_Entity)) << "no data of its own";
    EXPECT_EQ(sizeof(EMAIL_BodyPart), sizeof(EMAIL_Entity));
}

TEST(EMAIL_Entity, SetMessageReplacesTheTextOnly)
{
    EMAIL_Message message(QCString("A: 1\r\n\r\none"), nullptr);
    message.parse();
    message.setMessage("B: 2\r\n\r\ntwo");
    EXPECT_EQ(message.getMessage(), "B: 2\r\n\r\ntwo");
    EXPECT_EQ(message.mHeader->mFields.count(), 1);
    EXPECT_EQ(message.mBody->getMessage(), "one");
}

namespace {

struct AssembleRow
{
    const char* name;
    QCString field;
    QCString fieldBody;
    QCString body;
    QCString expected;
};

void PrintTo(const AssembleRow& row, std::ostream* out)
{
    *out << row.name;
}

class EntityAssemble : public testing::TestWithParam<AssembleRow>
{
protected:
    static void fill(EMAIL_Message& message)
    {
        if (!GetParam().fieldBody.isNull())
            message.mHeader->field(GetParam().field)->mBody = GetParam().fieldBody;
        message.mBody->setMessage(GetParam().body);
    }
};

} // namespace

TEST_P(EntityAssemble, InMemory)
{
    EMAIL_Message message;
    fill(message);
    EXPECT_EQ(message.assemble(nullptr), 0);
    EXPECT_EQ(message.getMessage(), GetParam().expected);
    message.assemble();
    EXPECT_EQ(message.getMessage(), GetParam().expected) << "again";
}

TEST_P(EntityAssemble, ToAFile)
{
    EMAIL_Message message(QCString("old text"), nullptr);
    fill(message);
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    EXPECT_EQ(message.assemble(&file), 0);
    EXPECT_EQ(message.getMessage(), "") << "the text went to the file only";
    file.seek(0);
    EXPECT_EQ(QCString(file.readAll()), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EntityAssemble,
    testing::Values(AssembleRow{"field and body", "A", "1", "body", "A: 1\r\n\r\nbody"},
                    AssembleRow{"field only", "A", "1", "", "A: 1\r\n\r\n"},
                    AssembleRow{"body only, no separator", "A", QCString(), "body", "body"},
                    AssembleRow{"empty field counts as no header", "A", "", "body", "body"},
                    AssembleRow{"nothing", "A", QCString(), "", ""},
                    AssembleRow{"header of six characters", "A", "1", "x", "A: 1\r\n\r\nx"},
                    AssembleRow{"nameless field", "", "1", "x", ": 1\r\n\r\nx"}));

namespace {

// An application's own field may write what it likes, and so give a header of any shape.
struct VerbatimField : EMAIL_Field
{
    explicit VerbatimField(const QCString& text) { mBody = text; }
    void assemble() override { mString = mBody; }
};

class Separator : public testing::TestWithParam<std::pair<QCString, QCString>>
{
};

} // namespace

TEST_P(Separator, FollowsAHeaderLongerThanThree)
{
    EMAIL_Message message;
    message.mHeader->addField(new VerbatimField(GetParam().first));
    message.mBody->setMessage("body");
    message.assemble();
    EXPECT_EQ(message.getMessage(), GetParam().first + GetParam().second + "body");
}

INSTANTIATE_TEST_SUITE_P(Rows, Separator,
                         testing::Values(std::pair("abc\n", "\r\n"), std::pair("a\nbc", "\r\n"),
                                         std::pair("abcd", ""), std::pair("\nabc", ""),
                                         std::pair("ab\nc", ""), std::pair("ab\n", ""),
                                         std::pair("\nab", ""), std::pair("\r\n", ""),
                                         std::pair("\n", "")));

TEST(EMAIL_Entity, AssemblyPullsChangesFromBelow)
{
    EMAIL_Message message(QCString("Subject: old\r\n\r\nbody"), nullptr);
    message.parse();
    message.mHeader->setSubject("new");
    EXPECT_EQ(message.getMessage(), "Subject: old\r\n\r\nbody") << "stale until assembled";
    message.assemble();
    EXPECT_EQ(message.getMessage(), "Subject: new\r\n\r\nbody");
    EXPECT_EQ(message.mHeader->getMessage(), "Subject: new\r\n");
}

TEST(EMAIL_Entity, AssemblyWithoutAHeaderFails)
{
    EMAIL_Message message;
    delete message.mHeader;
    message.mHeader = nullptr;
    EXPECT_EQ(message.assemble(nullptr), -1);
}

TEST(EMAIL_Entity, AssemblyReportsAFullDisk)
{
    EMAIL_Message message;
    message.mHeader->setSubject("x");
    for (const int size : {0, 1, 100, 16384, 16385, 32768, 70000}) {
        message.mBody->setMessage(QByteArray(size, 'x'));
        QFile full(QStringLiteral("/dev/full"));
        ASSERT_TRUE(full.open(QIODevice::WriteOnly));
        EXPECT_EQ(message.assemble(&full), -1) << size << " bytes of body";
    }
}

TEST(EMAIL_Entity, AssemblyToAClosedFileFails)
{
    EMAIL_Message message;
    message.mHeader->setSubject("x");
    QFile closed(QStringLiteral("/nowhere/at/all"));
    EXPECT_EQ(message.assemble(&closed), -1);
}

// Every short text over the bytes that matter: parsed in memory and as a file they agree, nothing
// is read outside, and the split covers the text.
TEST(EMAIL_Entity, EveryShortTextSplitsTheSameInMemoryAndInAFile)
{
    const QByteArray alphabet(":\r\n x");
    int texts = 0;
    for (int length = 0; length <= 7; ++length) {
        int combinations = 1;
        for (int i = 0; i < length; ++i)
            combinations *= int(alphabet.size());
        for (int number = 0; number < combinations; ++number, ++texts) {
            QByteArray text;
            for (int i = 0, rest = number; i < length; ++i, rest /= int(alphabet.size()))
                text.append(alphabet.at(rest % int(alphabet.size())));
            EMAIL_Message inMemory(text, nullptr);
            inMemory.parse();
            EMAIL_Message inFile;
            inFile.parse(text.constData(), 0, length, QStringLiteral("/a/file"));
            ASSERT_EQ(inMemory.mHeader->getMessage(), inFile.mHeader->getMessage())
                << testing::PrintToString(text);
            ASSERT_EQ(inMemory.mBody->getMessage(),
                      QCString(text.constData() + inFile.mBody->mOffset, inFile.mBody->mLength))
                << testing::PrintToString(text);
        }
    }
    EXPECT_EQ(texts, 97656);
}

} // namespace email_entity_test
