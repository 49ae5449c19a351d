// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Body.h"

#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <QDir>
#include <QTemporaryFile>
#include <limits>
#include <vector>

namespace {

const QString anyPath = QStringLiteral("/a/file");

// A message of one Content-Type field, whose body is the one under test.
struct Owner : EMAIL_Message
{
    explicit Owner(const char* type)
    {
        if (type != nullptr)
            mHeader->contentType()->mBody = type;
    }
};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int entriesOf(const char* folder)
{
    return int(QDir(QString::fromLatin1(folder)).entryList(QDir::AllEntries | QDir::System).size());
}

int mappingsOf(const QString& path)
{
    return int(contentOf(QStringLiteral("/proc/self/maps")).count(QFile::encodeName(path)));
}

QString fileWith(QTemporaryFile& file, const QByteArray& content)
{
    file.open();
    file.write(content);
    file.flush();
    return file.fileName();
}

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
    Owner owner(GetParam().type);
    owner.mBody->setMessage(GetParam().text);
    owner.mBody->parse();
    EXPECT_EQ(owner.mBody->getMessage(), GetParam().inMemory);
    EXPECT_EQ(owner.mBody->mLength, int(GetParam().text.size())) << "as it was set";
    EXPECT_TRUE(owner.mBody->isInMemory());
}

TEST_P(BodyText, InAFile)
{
    Owner owner(GetParam().type);
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
    Owner owner("text/plain");
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
    Owner owner("text/plain");
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
        Owner owner("multipart/mixed; boundary=b");
        const int length = start == 1 ? -1 : maxInt;
        owner.mBody->parse("--b\n", start, length, anyPath);
        EXPECT_EQ(owner.mBody->numBodyParts(), 0);
        EXPECT_EQ(owner.mBody->mLength, 0);
    }
}

TEST(EMAIL_Body, CutsTheTextOfTheExample)
{
    Owner owner("multipart/mixed; boundary=b");
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
    Owner owner("multipart/mixed; boundary=b");
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
    Owner owner("multipart/mixed; boundary=b");
    owner.mBody->setMessage("--b\nX: 1\n--b--");
    owner.mBody->parse("--b\nY: 2\n--b\nZ: 3\n--b--", 0, 23, QString());
    ASSERT_EQ(owner.mBody->numBodyParts(), 1);
    EXPECT_EQ(owner.mBody->bodyPart(0)->getMessage(), "X: 1");
}

TEST(EMAIL_Body, ParsingAgainKeepsTheParts)
{
    Owner owner("multipart/mixed; boundary=b");
    owner.mBody->setMessage("--b\nX: 1\n--b--");
    owner.mBody->parse();
    const EMAIL_BodyPart* first = owner.mBody->bodyPart(0);
    owner.mBody->parse();
    EXPECT_EQ(owner.mBody->numBodyParts(), 2);
    EXPECT_EQ(owner.mBody->bodyPart(0), first);
}

TEST(EMAIL_Body, ParsingAgainReplacesTheEnclosedMessage)
{
    Owner owner("message/rfc822");
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

TEST(EMAIL_Body, GivesItsText)
{
    EMAIL_Body body;
    body.setMessage("in memory");
    QCString text("old");
    EXPECT_EQ(body.getBodyText(text), 0);
    EXPECT_EQ(text, "in memory");

    QTemporaryFile file;
    const QString path = fileWith(file, QByteArray("0123\0 56789", 11));
    const int descriptors = entriesOf("/proc/self/fd");
    body.setBodyInfo(path, 1, 3, true);
    EXPECT_EQ(body.getBodyText(text), 0);
    EXPECT_EQ(text, "123");
    body.setBodyInfo(path, 2, 9, true);
    EXPECT_EQ(body.getBodyText(text), 0);
    EXPECT_EQ(text, "23") << "ends at the first NUL";
    body.setBodyInfo(path, 3, 0, true);
    EXPECT_EQ(body.getBodyText(text), 0);
    EXPECT_EQ(text, "");
    EXPECT_EQ(entriesOf("/proc/self/fd"), descriptors);
    EXPECT_EQ(mappingsOf(path), 0);
}

// Ranges that lie outside their file.
namespace {

struct OutsideRow
{
    const char* name;
    int offset;
    int length;
    bool fileExists = true;
    // Raw content is read from the first byte on, whatever the offset.
    int rawResult = -1;
};

void PrintTo(const OutsideRow& row, std::ostream* out)
{
    *out << row.name;
}

class OutsideRange : public testing::TestWithParam<OutsideRow>
{
protected:
    QTemporaryFile mStored;
    QString mPath = fileWith(mStored, "0123456789") + (GetParam().fileExists ? "" : "-not-there");
};

} // namespace

TEST_P(OutsideRange, IsNeverRead)
{
    const int descriptors = entriesOf("/proc/self/fd");
    Owner owner("application/octet-stream");
    owner.mBody->setBodyInfo(mPath, GetParam().offset, GetParam().length, true);
    QCString text("old");
    EXPECT_EQ(owner.mBody->getBodyText(text), -1);
    EXPECT_EQ(text, "old");
    RecordingFile out;
    EXPECT_EQ(owner.mBody->assemble(&out), -1);
    EXPECT_EQ(out.written(), "");
    EXPECT_EQ(owner.assemble(&out), -1);
    EXPECT_EQ(out.written(), "Content-Type: application/octet-stream\r\n\r\n")
        << "what was written before stays";
    owner.mBody->mEncoded = false;
    EXPECT_EQ(owner.mBody->assemble(&out), GetParam().rawResult);
    EXPECT_EQ(entriesOf("/proc/self/fd"), descriptors + 1) << "only the output is open";
    EXPECT_EQ(mappingsOf(mStored.fileName()), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, OutsideRange,
    testing::Values(OutsideRow{"length past the end", 0, 11},
                    OutsideRow{"offset past the end", 11, 1, true, 0},
                    OutsideRow{"both inside, sum past the end", 5, 6, true, 0},
                    OutsideRow{"negative offset", -1, 5, true, 0},
                    OutsideRow{"negative length", 5, -1},
                    OutsideRow{"sum past the largest number", maxInt - 1, 10, true, 0},
                    OutsideRow{"both past the largest number", maxInt, maxInt},
                    OutsideRow{"smallest numbers", std::numeric_limits<int>::min(),
                               std::numeric_limits<int>::min()},
                    OutsideRow{"no file", 0, 5, false}));

TEST(EMAIL_Body, WritesAFileBodyInBlocks)
{
    QTemporaryFile stored;
    QByteArray content;
    for (int i = 0; i < 70000; ++i)
        content.append(char('a' + i % 26));
    const QString path = fileWith(stored, "<" + content + ">");
    Owner owner("application/octet-stream");
    owner.mBody->setBodyInfo(path, 1, 70000, true);
    RecordingFile out;
    EXPECT_EQ(owner.mBody->assemble(&out), 0);
    EXPECT_EQ(out.written(), content + "\r\n");
    EXPECT_EQ(out.writes(), (std::vector<qint64>{32768, 32768, 4466}));
    EXPECT_EQ(owner.mBody->getMessage(), "") << "stays in its file";
}

namespace {

struct FileRow
{
    const char* name;
    const char* cte;
    int offset;
    int length;
    bool encoded;
    QByteArray written;
};

void PrintTo(const FileRow& row, std::ostream* out)
{
    *out << row.name;
}

class FileBody : public testing::TestWithParam<FileRow>
{
};

} // namespace

TEST_P(FileBody, IsWritten)
{
    QTemporaryFile stored;
    const QString path = fileWith(stored, "0123456789");
    Owner owner("application/octet-stream");
    if (GetParam().cte != nullptr)
        owner.mHeader->field("Content-Transfer-Encoding")->mBody = GetParam().cte;
    owner.mBody->setBodyInfo(path, GetParam().offset, GetParam().length, GetParam().encoded);
    RecordingFile out;
    EXPECT_EQ(owner.mBody->assemble(&out), 0);
    EXPECT_EQ(out.written(), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FileBody,
    testing::Values(FileRow{"range and CR LF", nullptr, 2, 3, true, "234\r\n"},
                    FileRow{"whole file", "base64", 0, 10, true, "0123456789\r\n"},
                    FileRow{"nothing", nullptr, 2, 0, true, ""},
                    FileRow{"nothing raw", "base64", 0, 0, false, ""},
                    FileRow{"raw from the first byte", "base64", 7, 3, false, "MDEy\r\n"},
                    FileRow{"raw as it is", "8bit", 7, 3, false, "012"},
                    FileRow{"raw without a transfer encoding", nullptr, 7, 3, false, "012"}));

TEST(EMAIL_Body, AssemblesNothingWithoutAnEntityAbove)
{
    EMAIL_Body body(QCString("text"), nullptr);
    EXPECT_EQ(body.assemble(nullptr), -1);
    EXPECT_EQ(body.getMessage(), "text");
    RecordingFile out;
    EXPECT_EQ(body.assemble(&out), -1);
    EXPECT_EQ(out.written(), "");
}

TEST(EMAIL_Body, AssemblyCreatesAMissingContentType)
{
    EMAIL_Message message;
    message.mBody->setMessage("text");
    EXPECT_EQ(message.mBody->assemble(nullptr), 0);
    ASSERT_NE(message.mHeader->getField("Content-Type"), nullptr);
    message.assemble();
    EXPECT_EQ(message.getMessage(), "text") << "its empty body writes nothing";
}

TEST(EMAIL_Body, AssemblyOfAFileBodyInMemoryLeavesItInItsFile)
{
    Owner owner("text/plain");
    owner.mBody->setBodyInfo(QStringLiteral("/not/there"), 0, 5, true);
    EXPECT_EQ(owner.assemble(nullptr), 0);
    EXPECT_EQ(owner.getMessage(), "Content-Type: text/plain\r\n\r\n");
    EXPECT_EQ(owner.mBody->getMessage(), "");
}

TEST(EMAIL_Body, AMessageIsWrittenFromItsText)
{
    Owner owner("message/rfc822");
    owner.mBody->setMessage("\nSubject: old\n\ntext\n");
    owner.mBody->parse();
    owner.mBody->mMessage->mHeader->setSubject("new");
    owner.mBody->assemble();
    EXPECT_EQ(owner.mBody->getMessage(), "\nSubject: old\n\ntext\n");
}

TEST(EMAIL_Body, AssemblesAddedParts)
{
    Owner owner("multipart/mixed; boundary=b");
    auto* part = new EMAIL_BodyPart;
    part->mHeader->setSubject("one");
    part->mBody->setMessage("text");
    owner.mBody->insertBodyPart(part, 0);
    owner.mBody->insertBodyPart(new EMAIL_BodyPart, 1);
    const QByteArray expected("--b\r\nSubject: one\r\n\r\ntext\r\n--b\r\n\r\n--b--\r\n");
    owner.assemble();
    EXPECT_EQ(owner.mBody->getMessage(), expected);
    EXPECT_EQ(part->getMessage(), "Subject: one\r\n\r\ntext");
    EXPECT_EQ(part->mHeader->getMessage(), "Subject: one\r\n");
    const QCString& whole = owner.getMessage();
    const char* begin = whole.begin();
    EXPECT_EQ(part->mBody->getMessage().begin() - begin, whole.find("text\r\n")) << "a slice";
    EXPECT_EQ(part->mHeader->getField("Subject")->getMessage().begin() - begin,
              whole.find("Subject"));
    RecordingFile out;
    EXPECT_EQ(owner.mBody->assemble(&out), 0);
    EXPECT_EQ(out.written(), expected);
    EXPECT_EQ(owner.mBody->getMessage(), "");
}

TEST(EMAIL_Body, APartThatCannotBeWrittenFailsTheWhole)
{
    Owner owner("multipart/mixed; boundary=b");
    auto* part = new EMAIL_BodyPart;
    part->mHeader->setSubject("one");
    part->mBody->setBodyInfo(QStringLiteral("/not/there"), 0, 5, true);
    owner.mBody->insertBodyPart(part, 0);
    RecordingFile out;
    EXPECT_EQ(owner.mBody->assemble(&out), -1);
    EXPECT_EQ(out.written(), "--b\r\nSubject: one\r\n\r\n");
}

TEST(EMAIL_Body, AssemblyReportsAFullDisk)
{
    QTemporaryFile stored;
    const QString path = fileWith(stored, QByteArray(100000, 'x'));
    const int descriptors = entriesOf("/proc/self/fd");
    for (const bool encoded : {true, false}) {
        for (const int length : {1, 32766, 32768, 100000}) {
            Owner owner("application/octet-stream");
            owner.mBody->setBodyInfo(path, 0, length, encoded);
            QFile full(QStringLiteral("/dev/full"));
            ASSERT_TRUE(full.open(QIODevice::WriteOnly));
            EXPECT_EQ(owner.mBody->assemble(&full), -1) << length << (encoded ? "" : " raw");
        }
    }
    EXPECT_EQ(entriesOf("/proc/self/fd"), descriptors);
    EXPECT_EQ(mappingsOf(path), 0);
}

TEST(EMAIL_Body, PassesOverWhatAnApplicationTookOut)
{
    EMAIL_Message message(QCString("Content-Type: multipart/mixed; boundary=b\n\n"
                                   "--b\nA: 1\n\none\n--b\nB: 2\n\ntwo\n--b--\n"),
                          nullptr);
    message.parse();
    EMAIL_Body& body = *message.mBody;
    ASSERT_EQ(body.numBodyParts(), 2);
    body.mBodyParts.append(nullptr);
    body.assemble();
    EXPECT_EQ(body.getMessage(), "--b\r\nA: 1\r\n\r\none\r\n--b\r\nB: 2\r\n\r\ntwo\r\n--b--\r\n");
    delete body.bodyPart(0)->mBody;
    body.bodyPart(0)->mBody = nullptr;
}
