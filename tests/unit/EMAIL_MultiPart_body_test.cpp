// SPDX-License-Identifier: MIT
#include "tests/support/HugeBytes.h"
#include "tests/support/OpenResources.h"
#include "tests/support/RecordingFile.h"
#include "tests/support/RowNames.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

namespace email_multi_part_body_test {

namespace {

const QString eAcute = QString::fromLatin1("caf\xe9");
const QString greek = QString::fromUtf8("\xce\xb1\xce\xb2");

} // namespace

TEST(EMAIL_MultiPartBody, EncodedBytesAreStoredAsTheyAre)
{
    EMAIL_MultiPart part(nullptr);
    part.setBodyInfo(QStringLiteral("/a/file"), 1, 2, true);
    part.setBody(QByteArray("YWJj"), true);
    EXPECT_TRUE(part.isInMemory());
    EXPECT_TRUE(part.mEncoded);
    EXPECT_EQ(part.mBodyLength, 4);
    EXPECT_EQ(part.mBodyData, "YWJj");
    EXPECT_EQ(part.mCTE, 0) << "no encoding is chosen for encoded bytes";
    EXPECT_EQ(part.mBodyFile, QStringLiteral("/a/file")) << "the other state's members stay";
    part.setCTE(CTE_BASE64);
    EXPECT_EQ(part.getBody(), "abc");
}

TEST(EMAIL_MultiPartBody, OtherBytesAreEncoded)
{
    EMAIL_MultiPart part(nullptr);
    part.setBody(QByteArray("a\0b", 3), false);
    EXPECT_EQ(part.mCTE, CTE_BASE64) << "an encoding is chosen when none is set";
    EXPECT_EQ(part.mBodyData, "YQBi\r\n");
    EXPECT_EQ(part.mBodyLength, 3) << "the length is that of the data";
    EXPECT_TRUE(part.mEncoded);
    EXPECT_EQ(part.getBody(), QByteArray("a\0b", 3));

    EMAIL_MultiPart quoted(nullptr);
    quoted.setCTE(CTE_QUOTED_PRINTABLE);
    quoted.setBody(QByteArray("a=b"), false);
    EXPECT_EQ(quoted.mBodyData, "a=3Db\r\n");
    EXPECT_EQ(quoted.mBodyLength, 3);
}

TEST(EMAIL_MultiPartBody, EmptyBytesKeepTheOldOnes)
{
    EMAIL_MultiPart part(nullptr);
    part.setBody(QByteArray("old"), true);
    part.setBodyInfo(QStringLiteral("/a/file"), 1, 2, false);
    for (const bool isEncoded : {true, false}) {
        part.mInMemory = false;
        part.mEncoded = false;
        part.setBody(QByteArray(), isEncoded);
        EXPECT_EQ(part.mBodyData, "old");
        EXPECT_EQ(part.mBodyLength, 0);
        EXPECT_TRUE(part.isInMemory());
        EXPECT_TRUE(part.mEncoded);
        EXPECT_EQ(part.getBody(), "old");
    }
    part.mBodyLength = 5;
    part.setBody(QString(), true);
    EXPECT_EQ(part.mBodyData, "old");
    EXPECT_EQ(part.mBodyLength, 0);
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
TEST(EMAIL_MultiPartBody, BytesOfTwoGigabytesAreRefused)
{
    const HugeBytes bytes;
    if (!bytes.isMapped())
        GTEST_SKIP() << "no address space";
    for (const bool isEncoded : {true, false}) {
        for (const char* old : {"", "old"}) {
            EMAIL_MultiPart part(nullptr);
            part.setBody(QByteArray(old), true);
            part.setBody(QByteArray::fromRawData(bytes.data(), qsizetype(1) << 31), isEncoded);
            EXPECT_TRUE(part.mBodyData.isEmpty()) << "the old body is not sent in its place";
            EMAIL_MIME message;
            message.setType(TYPE_MULTIPART);
            message.addMultiPart(part, -1);
            EXPECT_EQ(message.mMessage->assemble(nullptr), -1);
        }
    }
}
#endif

namespace {

struct TextRow
{
    const char* name;
    int charset;
    bool useCharset;
    QString text;
    int newCharset;
    QByteArray bytes;
};

void PrintTo(const TextRow& row, std::ostream* out)
{
    *out << row.name;
}

class SetPartText : public testing::TestWithParam<TextRow>
{
};

} // namespace

TEST_P(SetPartText, IsConvertedAndEncoded)
{
    EMAIL_MultiPart part(nullptr);
    part.setCTE(CTE_8BIT);
    part.setCharset(GetParam().charset);
    part.setBody(GetParam().text, GetParam().useCharset);
    EXPECT_EQ(part.mCharset, GetParam().newCharset);
    EXPECT_EQ(part.mBodyData, GetParam().bytes);
    EXPECT_EQ(part.mBodyLength, int(GetParam().bytes.size()));
    EXPECT_TRUE(part.mEncoded);
    EXPECT_TRUE(part.isInMemory());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SetPartText,
    testing::Values(
        TextRow{"latin-1 without charset", CHARSET_UTF_8, false, eAcute, CHARSET_UTF_8, "caf\xe9"},
        TextRow{"fitting charset", CHARSET_ISO_8859_1, true, eAcute, CHARSET_ISO_8859_1, "caf\xe9"},
        TextRow{"unfitting charset becomes utf-8", CHARSET_ISO_8859_1, true, greek, CHARSET_UTF_8,
                "\xce\xb1\xce\xb2"},
        TextRow{"charset that is not set becomes utf-8", CHARSET_UNKNOWN, true, QStringLiteral("a"),
                CHARSET_UTF_8, "a"},
        TextRow{"us-ascii holds latin-1", CHARSET_US_ASCII, true, eAcute, CHARSET_US_ASCII,
                "caf\xe9"},
        TextRow{"text ends at nul", CHARSET_UTF_8, true,
                QStringLiteral("a") + QChar(0) + QStringLiteral("b"), CHARSET_UTF_8, "a"},
        TextRow{"latin-1 ends at nul", CHARSET_UTF_8, false,
                QStringLiteral("a") + QChar(0) + QStringLiteral("b"), CHARSET_UTF_8, "a"},
        TextRow{"nul in front", CHARSET_UTF_8, true, QChar(0) + QStringLiteral("b"), CHARSET_UTF_8,
                ""},
        TextRow{"nul in front of latin-1", CHARSET_UTF_8, false, QChar(0) + QStringLiteral("b"),
                CHARSET_UTF_8, ""},
        TextRow{"utf-7 is never written", CHARSET_UTF_7, true, eAcute, CHARSET_UTF_7, ""}),
    rowName<TextRow>);

TEST(EMAIL_MultiPartBody, TextGetsAnEncodingWhenNoneIsSet)
{
    EMAIL_MultiPart part(nullptr);
    part.setBody(greek, true);
    EXPECT_EQ(part.mCTE, CTE_BASE64);
    EXPECT_EQ(part.mBodyData, "zrHOsg==\r\n");
    EXPECT_EQ(part.mBodyLength, 4) << "the bytes, not the characters";
}

namespace {

struct SizeRow
{
    int cte;
    bool encoded;
    int length;
    int size;
};

void PrintTo(const SizeRow& row, std::ostream* out)
{
    *out << "encoding " << row.cte << ", " << row.encoded << ", " << row.length;
}

class ShownSize : public testing::TestWithParam<SizeRow>
{
};

} // namespace

TEST_P(ShownSize, IsEstimatedForBase64Only)
{
    EMAIL_MultiPart part(nullptr);
    part.setCTE(GetParam().cte);
    part.setBodyInfo(QStringLiteral("/a/file"), 0, GetParam().length, GetParam().encoded);
    EXPECT_EQ(part.getSize(), GetParam().size);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ShownSize,
    testing::Values(SizeRow{CTE_BASE64, true, 10, 9}, SizeRow{CTE_BASE64, true, 0, 0},
                    SizeRow{CTE_BASE64, true, 1, 3}, SizeRow{CTE_BASE64, true, 4, 3},
                    SizeRow{CTE_BASE64, true, 5, 6},
                    SizeRow{CTE_BASE64, true, 2147483647, 1610612736},
                    SizeRow{CTE_BASE64, false, 10, 10}, SizeRow{CTE_QUOTED_PRINTABLE, true, 10, 10},
                    SizeRow{CTE_8BIT, true, 10, 10}));

namespace {

class BodyInFile : public testing::Test
{
protected:
    BodyInFile() : mStored("0123" + QByteArray(100000, 'x').toBase64() + "tail")
    {
        mPart.setCTE(CTE_BASE64);
        mPart.setBodyInfo(mStored.path(), 4, 133336, true);
    }

    OpenResources resources() const { return OpenResources::of(mStored.path()); }

    StoredFile mStored;
    RecordingFile mTarget;
    EMAIL_MultiPart mPart{nullptr};
};

} // namespace

TEST_F(BodyInFile, InfoIsStored)
{
    QString path;
    int offset = 0;
    int length = 0;
    bool encoded = false;
    mPart.getBodyInfo(path, offset, length, encoded);
    EXPECT_EQ(path, mStored.path());
    EXPECT_EQ(offset, 4);
    EXPECT_EQ(length, 133336);
    EXPECT_TRUE(encoded);
    EXPECT_FALSE(mPart.isInMemory());
    EXPECT_EQ(mPart.getBody(), "") << "nothing is in memory";
    mPart.mBodyData = "unused";
    EXPECT_EQ(mPart.getBody(), "");
}

TEST_F(BodyInFile, EncodingIsChosenForTheRangeWhenNoneIsSet)
{
    const OpenResources before = resources();
    const StoredFile letters("   abcdefghijklmnopqrst   ");
    EMAIL_MultiPart part(nullptr);
    EXPECT_EQ(part.setBodyInfo(letters.path(), 3, 20, false), 0);
    EXPECT_EQ(part.mCTE, CTE_QUOTED_PRINTABLE);
    part.setCTE(0);
    EXPECT_EQ(part.setBodyInfo(letters.path(), 0, 26, false), 0);
    EXPECT_EQ(part.mCTE, CTE_BASE64);
    part.setCTE(0);
    EXPECT_EQ(part.setBodyInfo(letters.missingPath(), 0, 26, true), 0) << "nothing to choose";
    EXPECT_EQ(part.mCTE, 0);
    part.setCTE(CTE_8BIT);
    EXPECT_EQ(part.setBodyInfo(letters.missingPath(), 0, 26, false), 0) << "nothing to choose";
    EXPECT_EQ(resources(), before);
}

TEST_F(BodyInFile, FileThatCannotBeReadStoresTheValuesAllTheSame)
{
    const OpenResources before = resources();
    const struct
    {
        QString path;
        int offset;
        int length;
    } rows[] = {{mStored.missingPath(), 1, 2},
                {mStored.path(), 1, 999999},
                {mStored.path(), -1, 3},
                {mStored.path(), 3, -1}};
    for (const auto& row : rows) {
        EMAIL_MultiPart part(nullptr);
        EXPECT_EQ(part.setBodyInfo(row.path, row.offset, row.length, false), -1);
        EXPECT_EQ(part.mBodyFile, row.path);
        EXPECT_EQ(part.mBodyOffset, row.offset);
        EXPECT_EQ(part.mBodyLength, row.length);
        EXPECT_FALSE(part.isInMemory());
        EXPECT_EQ(part.mCTE, 0);
    }
    EXPECT_EQ(resources(), before);
}

TEST_F(BodyInFile, IsDecodedInBlocksThatAskTheCallback)
{
    const OpenResources before = resources();
    int calls = 0;
    EXPECT_EQ(mPart.getBody(&mTarget, [&calls] { return ++calls, 0; }), 0);
    EXPECT_EQ(mTarget.written(), QByteArray(100000, 'x'));
    EXPECT_EQ(calls, 3) << "the rest is no full block";
    EXPECT_EQ(resources(), before);
}

TEST_F(BodyInFile, RawContentIsCopiedWhateverTheEncoding)
{
    mPart.mEncoded = false;
    EXPECT_EQ(mPart.getBody(&mTarget), 0);
    EXPECT_EQ(mTarget.written(), QByteArray(100000, 'x').toBase64());
}

TEST_F(BodyInFile, CallbackCancels)
{
    const OpenResources before = resources();
    EXPECT_EQ(mPart.getBody(&mTarget, [] { return -1; }), -1);
    EXPECT_EQ(mTarget.written(), "");
    EXPECT_EQ(resources(), before);
}

TEST_F(BodyInFile, FullDiskFails)
{
    QFile full(QStringLiteral("/dev/full"));
    ASSERT_TRUE(full.open(QIODevice::WriteOnly));
    const OpenResources before = resources();
    EXPECT_EQ(mPart.getBody(&full), -1);
    EXPECT_EQ(resources(), before);
    EMAIL_MultiPart inMemory(nullptr);
    inMemory.setBody(QByteArray("x"), true);
    EXPECT_EQ(inMemory.getBody(&full), -1);
}

TEST_F(BodyInFile, FileCutShortFails)
{
    mStored.cutTo(133339);
    const OpenResources before = resources();
    QString text(QStringLiteral("kept"));
    EXPECT_EQ(mPart.getBody(&mTarget), -1);
    EXPECT_EQ(mPart.getTextBody(text, 0), -1);
    EXPECT_EQ(text, QStringLiteral("kept"));
    EXPECT_EQ(mTarget.written(), "");
    mStored.cutTo(0);
    EXPECT_EQ(mPart.getBody(&mTarget), -1);
    QFile::remove(mStored.path());
    EXPECT_EQ(mPart.getBody(&mTarget), -1);
    EXPECT_EQ(mPart.getTextBody(text, 0), -1);
    EXPECT_EQ(resources(), before);
}

// The callback is where an application may do anything: here its store drops the file's end.
TEST_F(BodyInFile, FileCutShortWhileItIsStreamedFails)
{
    const OpenResources before = resources();
    int calls = 0;
    EXPECT_EQ(
        mPart.getBody(&mTarget, [&] { return ++calls == 2 ? mStored.cutTo(100) : void(), 0; }), -1);
    EXPECT_TRUE(QByteArray(100000, 'x').startsWith(mTarget.written()));
    EXPECT_GE(mTarget.written().size(), 32768) << "what was decoded before stays";
    EXPECT_EQ(resources(), before);
}

TEST_F(BodyInFile, InMemoryIsWrittenAtOnceWithoutAsking)
{
    EMAIL_MultiPart part(nullptr);
    part.setCTE(CTE_BASE64);
    part.setBody(QByteArray(100000, 'x'), false);
    EXPECT_EQ(part.getBody(&mTarget, [] { return -1; }), 0);
    EXPECT_EQ(mTarget.written(), QByteArray(100000, 'x'));
    EXPECT_EQ(part.getBody(static_cast<QFile*>(nullptr), nullptr), -1);
}

namespace {

struct ReadTextRow
{
    const char* name;
    QByteArray body;
    int cte;
    int charset;
    int defaultCharset;
    QString text;
};

void PrintTo(const ReadTextRow& row, std::ostream* out)
{
    *out << row.name;
}

class ReadPartText : public testing::TestWithParam<ReadTextRow>
{
protected:
    void expectText(EMAIL_MultiPart& part) const
    {
        part.setCTE(GetParam().cte);
        part.setCharset(GetParam().charset);
        QString text(QStringLiteral("stale"));
        EXPECT_EQ(part.getTextBody(text, GetParam().defaultCharset), 0);
        EXPECT_EQ(text, GetParam().text);
    }
};

} // namespace

TEST_P(ReadPartText, InMemory)
{
    EMAIL_MultiPart part(nullptr);
    part.setBody(GetParam().body, true);
    expectText(part);
}

TEST_P(ReadPartText, InAFile)
{
    const StoredFile stored("XX" + GetParam().body + "YY");
    const OpenResources before = OpenResources::of(stored.path());
    EMAIL_MultiPart part(nullptr);
    part.setCTE(GetParam().cte);
    part.setBodyInfo(stored.path(), 2, int(GetParam().body.size()), true);
    expectText(part);
    part.mEncoded = false;
    expectText(part);
    EXPECT_EQ(OpenResources::of(stored.path()), before);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ReadPartText,
    testing::Values(ReadTextRow{"base64 in utf-8", "zrHOsg==", CTE_BASE64, CHARSET_UTF_8, 0, greek},
                    ReadTextRow{"quoted-printable in latin-1", "caf=E9", CTE_QUOTED_PRINTABLE,
                                CHARSET_ISO_8859_1, CHARSET_UTF_8, eAcute},
                    ReadTextRow{"default charset", "\xce\xb1\xce\xb2", CTE_8BIT, CHARSET_UNKNOWN,
                                CHARSET_UTF_8, greek},
                    ReadTextRow{"no charset at all is latin-1", "caf\xe9", CTE_8BIT,
                                CHARSET_UNKNOWN, CHARSET_UNKNOWN, eAcute},
                    ReadTextRow{"no encoding", "a=41", 0, CHARSET_UTF_8, 0, QStringLiteral("a=41")},
                    ReadTextRow{"up to a nul", QByteArray("a\0b", 3), CTE_8BIT, CHARSET_UTF_8, 0,
                                QStringLiteral("a")},
                    ReadTextRow{"base64 up to a nul", QByteArray("QUJD\0QUJD", 9), CTE_BASE64,
                                CHARSET_UTF_8, 0, QStringLiteral("ABC")},
                    ReadTextRow{"quoted-printable up to a nul", QByteArray("=41\0=41", 7),
                                CTE_QUOTED_PRINTABLE, CHARSET_UTF_8, 0, QStringLiteral("A")},
                    ReadTextRow{"nothing at all leaves it", "", CTE_8BIT, CHARSET_UTF_8, 0,
                                QStringLiteral("stale")},
                    ReadTextRow{"no whole group leaves it", "QUJ", CTE_BASE64, CHARSET_UTF_8, 0,
                                QStringLiteral("stale")},
                    ReadTextRow{"soft line breaks leave it", "=\r\n=\n", CTE_QUOTED_PRINTABLE,
                                CHARSET_UTF_8, 0, QStringLiteral("stale")},
                    ReadTextRow{"a nul in front leaves it", QByteArray("\0abc", 4), CTE_8BIT,
                                CHARSET_ISO_8859_1, 0, QStringLiteral("stale")}),
    rowName<ReadTextRow>);

TEST(EMAIL_MultiPartBody, EmptyBodyLeavesTheTextAlone)
{
    const EMAIL_MultiPart part(nullptr);
    QString text(QStringLiteral("kept"));
    EXPECT_EQ(part.getTextBody(text, CHARSET_UTF_8), 0);
    EXPECT_EQ(text, QStringLiteral("kept"));
    EXPECT_EQ(part.getBody(), "");
    RecordingFile target;
    EXPECT_EQ(part.getBody(&target), 0);
    EXPECT_EQ(target.written(), "");
}

} // namespace email_multi_part_body_test
