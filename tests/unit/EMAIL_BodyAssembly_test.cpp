// SPDX-License-Identifier: MIT
// What a body hands out: the text it stores, and what it assembles to in memory and in a file.
#include "tests/support/BodyOwner.h"
#include "tests/support/OpenResources.h"
#include "tests/support/RecordingFile.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Field.h"

#include <limits>
#include <vector>

namespace email_body_assembly_test {

namespace {

constexpr int maxInt = std::numeric_limits<int>::max();

EMAIL_BodyPart* addPart(BodyOwner& owner)
{
    auto* part = new EMAIL_BodyPart;
    part->mHeader->setSubject("one");
    part->mBody->setMessage("text");
    owner.mBody->insertBodyPart(part, 0);
    return part;
}

} // namespace

TEST(EMAIL_BodyAssembly, GivesItsText)
{
    EMAIL_Body body;
    body.setMessage("in memory");
    QCString text("old");
    EXPECT_EQ(body.getBodyText(text), 0);
    EXPECT_EQ(text, "in memory");

    const StoredFile stored(QByteArray("0123\0 56789", 11));
    const QString path = stored.path();
    const OpenResources before = OpenResources::of(path);
    body.setBodyInfo(path, 1, 3, true);
    EXPECT_EQ(body.getBodyText(text), 0);
    EXPECT_EQ(text, "123");
    body.setBodyInfo(path, 2, 9, true);
    EXPECT_EQ(body.getBodyText(text), 0);
    EXPECT_EQ(text, "23") << "ends at the first NUL";
    body.setBodyInfo(path, 3, 0, true);
    EXPECT_EQ(body.getBodyText(text), 0);
    EXPECT_EQ(text, "");
    EXPECT_EQ(OpenResources::of(path), before);
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
    StoredFile mStored{"0123456789"};
    QString mPath = GetParam().fileExists ? mStored.path() : mStored.missingPath();
};

} // namespace

TEST_P(OutsideRange, IsNeverRead)
{
    RecordingFile out;
    const OpenResources before = OpenResources::of(mPath);
    BodyOwner owner("application/octet-stream");
    owner.mBody->setBodyInfo(mPath, GetParam().offset, GetParam().length, true);
    QCString text("old");
    EXPECT_EQ(owner.mBody->getBodyText(text), -1);
    EXPECT_EQ(text, "old");
    EXPECT_EQ(owner.mBody->assemble(&out), -1);
    EXPECT_EQ(out.written(), "");
    EXPECT_EQ(owner.assemble(&out), -1);
    EXPECT_EQ(out.written(), "Content-Type: application/octet-stream\r\n\r\n")
        << "what was written before stays";
    owner.mBody->mEncoded = false;
    EXPECT_EQ(owner.mBody->assemble(&out), GetParam().rawResult);
    EXPECT_EQ(OpenResources::of(mPath), before);
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

TEST(EMAIL_BodyAssembly, WritesAFileBodyInBlocks)
{
    QByteArray content;
    for (int i = 0; i < 70000; ++i)
        content.append(char('a' + i % 26));
    const StoredFile stored("<" + content + ">");
    BodyOwner owner("application/octet-stream");
    owner.mBody->setBodyInfo(stored.path(), 1, 70000, true);
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
    const StoredFile stored("0123456789");
    BodyOwner owner("application/octet-stream");
    if (GetParam().cte != nullptr)
        owner.mHeader->field("Content-Transfer-Encoding")->mBody = GetParam().cte;
    owner.mBody->setBodyInfo(stored.path(), GetParam().offset, GetParam().length,
                             GetParam().encoded);
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

TEST(EMAIL_BodyAssembly, AssemblesNothingWithoutAnEntityAbove)
{
    EMAIL_Body body(QCString("text"), nullptr);
    EXPECT_EQ(body.assemble(nullptr), -1);
    EXPECT_EQ(body.getMessage(), "text");
    RecordingFile out;
    EXPECT_EQ(body.assemble(&out), -1);
    EXPECT_EQ(out.written(), "");
}

TEST(EMAIL_BodyAssembly, ABodyThatWasTakenFromItsEntityIsItsTextInMemory)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    EMAIL_BodyPart* const part = addPart(owner);
    part->mBody->setParent(nullptr);
    EXPECT_EQ(owner.assemble(nullptr), 0);
    EXPECT_EQ(part->getMessage(), "Subject: one\r\n\r\ntext");
    EXPECT_EQ(owner.mBody->getMessage(), "--b\r\n" + part->getMessage() + "\r\n--b--\r\n");
    EXPECT_EQ(part->mBody->getMessage(), "text");
    owner.mBody->setParent(owner.mHeader);
    owner.mBody->mString = "as it stands";
    EXPECT_EQ(owner.assemble(nullptr), 0);
    EXPECT_EQ(owner.getMessage(), owner.mHeader->getMessage() + "\r\nas it stands");
    RecordingFile out;
    EXPECT_EQ(owner.assemble(&out), -1);
    EXPECT_EQ(out.written(), owner.mHeader->getMessage() + "\r\n") << "nobody says how to write it";
}

TEST(EMAIL_BodyAssembly, AssemblyCreatesAMissingContentType)
{
    EMAIL_Message message;
    message.mBody->setMessage("text");
    EXPECT_EQ(message.mBody->assemble(nullptr), 0);
    ASSERT_NE(message.mHeader->getField("Content-Type"), nullptr);
    message.assemble();
    EXPECT_EQ(message.getMessage(), "text") << "its empty body writes nothing";
}

TEST(EMAIL_BodyAssembly, ABodyWithoutAContentTypeIsWrittenAsItIs)
{
    const StoredFile stored("0123456789");
    EMAIL_Message message;
    message.mBody->setBodyInfo(stored.path(), 2, 3, true);
    message.mBody->insertBodyPart(new EMAIL_BodyPart, 0);
    RecordingFile out;
    EXPECT_EQ(message.mBody->assemble(&out), 0);
    EXPECT_EQ(out.written(), "234\r\n") << "its parts count for a multipart type only";
}

TEST(EMAIL_BodyAssembly, AssemblyOfAFileBodyInMemoryLeavesItInItsFile)
{
    BodyOwner owner("text/plain");
    owner.mBody->setBodyInfo(QStringLiteral("/not/there"), 0, 5, true);
    EXPECT_EQ(owner.assemble(nullptr), 0);
    EXPECT_EQ(owner.getMessage(), "Content-Type: text/plain\r\n\r\n");
    EXPECT_EQ(owner.mBody->getMessage(), "");
}

TEST(EMAIL_BodyAssembly, AMessageIsWrittenFromItsText)
{
    BodyOwner owner("message/rfc822");
    owner.mBody->setMessage("\nSubject: old\n\ntext\n");
    owner.mBody->parse();
    owner.mBody->mMessage->mHeader->setSubject("new");
    owner.mBody->assemble();
    EXPECT_EQ(owner.mBody->getMessage(), "\nSubject: old\n\ntext\n");
}

TEST(EMAIL_BodyAssembly, AssemblesAddedParts)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    EMAIL_BodyPart* const part = addPart(owner);
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

TEST(EMAIL_BodyAssembly, TakesTheBoundaryThatTheTypeHasByThen)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    owner.mBody->setMessage("--b\nX: 1\n\none\n--b--");
    owner.mBody->parse();
    owner.mHeader->contentType()->setBoundary("new");
    EXPECT_EQ(owner.mBody->mBoundary, "b");
    EXPECT_EQ(owner.mBody->assemble(nullptr), 0);
    EXPECT_EQ(owner.mBody->mBoundary, "new");
    EXPECT_EQ(owner.mBody->getMessage(), "--new\r\nX: 1\r\n\r\none\r\n--new--\r\n");
}

TEST(EMAIL_BodyAssembly, APartThatCannotBeWrittenFailsTheWhole)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    auto* part = new EMAIL_BodyPart;
    part->mHeader->setSubject("one");
    part->mBody->setBodyInfo(QStringLiteral("/not/there"), 0, 5, true);
    owner.mBody->insertBodyPart(part, 0);
    RecordingFile out;
    EXPECT_EQ(owner.mBody->assemble(&out), -1);
    EXPECT_EQ(out.written(), "--b\r\nSubject: one\r\n\r\n");
}

TEST(EMAIL_BodyAssembly, AssemblyReportsAFullDisk)
{
    const StoredFile stored(QByteArray(100000, 'x'));
    const QString path = stored.path();
    const OpenResources before = OpenResources::of(path);
    for (const bool encoded : {true, false}) {
        for (const int length : {1, 32766, 32768, 100000}) {
            BodyOwner owner("application/octet-stream");
            owner.mBody->setBodyInfo(path, 0, length, encoded);
            QFile full(QStringLiteral("/dev/full"));
            ASSERT_TRUE(full.open(QIODevice::WriteOnly));
            EXPECT_EQ(owner.mBody->assemble(&full), -1) << length << (encoded ? "" : " raw");
        }
    }
    EXPECT_EQ(OpenResources::of(path), before);
}

TEST(EMAIL_BodyAssembly, PassesOverWhatAnApplicationTookOut)
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

namespace {

// Those of an application, which assemble themselves as the library does.
struct OwnPart : EMAIL_BodyPart
{
};
struct OwnBody : EMAIL_Body
{
    using EMAIL_Body::EMAIL_Body;
};

const QCString kTooLong = QByteArray(1 << 21, 'x');

void setName(const EMAIL_Entity& entity, const QCString& name)
{
    entity.mHeader->contentType()->setName(name);
}

} // namespace

TEST(DerivedComponents, APartThatRefusesFailsTheWhole)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    auto* part = new OwnPart;
    owner.mBody->insertBodyPart(part, 0);
    for (const char* round : {"first", "with the text of before"}) {
        setName(*part, kTooLong);
        EXPECT_EQ(owner.assemble(nullptr), -1) << round;
        setName(*part, "1");
        EXPECT_EQ(owner.assemble(nullptr), 0) << round << ": the failure does not stay";
        EXPECT_EQ(owner.mBody->getMessage(),
                  "--b\r\nContent-Type: text/plain;\r\n\tname=1\r\n\r\n\r\n--b--\r\n");
    }
}

TEST(DerivedComponents, ABodyWhosePartRefusesFailsTheWhole)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    delete owner.mBody;
    owner.mBody = new OwnBody("preamble", &owner);
    EMAIL_BodyPart* const part = addPart(owner);
    for (const char* round : {"first", "with the text of before"}) {
        setName(*part, kTooLong);
        EXPECT_EQ(owner.assemble(nullptr), -1) << round;
        setName(*part, "1");
        EXPECT_EQ(owner.assemble(nullptr), 0) << round << ": the failure does not stay";
    }
}

TEST(DerivedComponents, ABodyThatIsItsOwnTextKeepsIt)
{
    BodyOwner owner("text/plain");
    delete owner.mBody;
    owner.mBody = new OwnBody("text", &owner);
    owner.assemble();
    EXPECT_EQ(owner.getMessage(), "Content-Type: text/plain\r\n\r\ntext");
    EXPECT_EQ(owner.mBody->getMessage(), "text");
    owner.mBody->setParent(nullptr);
    owner.mBody->assemble();
    EXPECT_EQ(owner.mBody->getMessage(), "text") << "also where nobody says what it is";
}

} // namespace email_body_assembly_test
