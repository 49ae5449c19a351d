// SPDX-License-Identifier: MIT
#include "tests/support/CodecOracles.h"
#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_Util.h"

// What the file forms have in common: the points at which blocks go out and the callback is asked,
// and what becomes of a full disk.
namespace {

constexpr int kThreshold = 32768;

using Writes = std::vector<qint64>;

struct Form
{
    const char* name;
    int (*run)(const QByteArray& in, QFile* out, const ProgressCallback& callback);
    QByteArray (*expected)(const QByteArray& in);
    bool asksTheCallback;
};

unsigned long size(const QByteArray& in)
{
    return static_cast<unsigned long>(in.size());
}

int length(const QByteArray& in)
{
    return static_cast<int>(in.size());
}

const std::vector<Form> kForms{
    {"encodeBase64",
     [](const QByteArray& in, QFile* out, const ProgressCallback&) {
         return EMAIL_Util::encB64(in.constData(), size(in), out, 1);
     },
     [](const QByteArray& in) { return oracle::encodeBase64(in, true); }, false},
    {"encodeBase64Unbroken",
     [](const QByteArray& in, QFile* out, const ProgressCallback&) {
         return EMAIL_Util::encB64(in.constData(), size(in), out, 0);
     },
     [](const QByteArray& in) { return oracle::encodeBase64(in, false); }, false},
    {"decodeBase64",
     [](const QByteArray& in, QFile* out, const ProgressCallback& callback) {
         return EMAIL_Util::decB64(in.constData(), length(in), out, callback);
     },
     oracle::decodeBase64, true},
    {"encodeQp",
     [](const QByteArray& in, QFile* out, const ProgressCallback&) {
         return EMAIL_Util::encQp(in.constData(), size(in), out, 1);
     },
     [](const QByteArray& in) { return oracle::encodeQp(in, true); }, false},
    {"encodeQpUnbroken",
     [](const QByteArray& in, QFile* out, const ProgressCallback&) {
         return EMAIL_Util::encQp(in.constData(), size(in), out, 0);
     },
     [](const QByteArray& in) { return oracle::encodeQp(in, false); }, false},
    {"decodeQp",
     [](const QByteArray& in, QFile* out, const ProgressCallback& callback) {
         return EMAIL_Util::decQp(in.constData(), length(in), out, callback);
     },
     oracle::decodeQp, true},
};

class CodecStream : public testing::TestWithParam<Form>
{
};

TEST_P(CodecStream, FullDiskIsReported)
{
    for (const int count : {1, 100, 16384, 16385, 70000}) {
        // An escape for the quoted-printable decoder, 4 digits for the base64 decoder.
        QByteArray in = QByteArray("=41Q").repeated(count);
        if (GetParam().asksTheCallback && GetParam().expected("=41Q").size() == 3)
            in = QByteArray("QUJD").repeated(count);
        QFile full("/dev/full");
        ASSERT_TRUE(full.open(QIODevice::WriteOnly));
        EXPECT_EQ(GetParam().run(in, &full, nullptr), -1) << count;
    }
}

TEST_P(CodecStream, OutputOfExactlyThisManyBytesOnAFullDisk)
{
    for (const int count : {1, 100, 16384, 16385, 70000}) {
        const QByteArray in = QByteArray("a").repeated(count);
        if (GetParam().expected(in).isEmpty())
            continue;
        QFile full("/dev/full");
        ASSERT_TRUE(full.open(QIODevice::WriteOnly));
        EXPECT_EQ(GetParam().run(in, &full, nullptr), -1) << count;
    }
}

TEST_P(CodecStream, AFileThatIsNotOpenFails)
{
    QFile closed;
    EXPECT_EQ(GetParam().run("QUJD", &closed, nullptr), -1);
}

TEST_P(CodecStream, NothingIsWrittenForNothing)
{
    RecordingFile file;
    EXPECT_EQ(GetParam().run("", &file, [] { return -1; }), 0);
    EXPECT_EQ(file.writes(), Writes());
}

TEST_P(CodecStream, NothingForAFileThatFailedBefore)
{
    QFile full("/dev/full");
    ASSERT_TRUE(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    full.write("x");
    ASSERT_NE(full.error(), QFile::NoError);
    EXPECT_EQ(GetParam().run("", &full, nullptr), -1);
}

TEST_P(CodecStream, ReadsLikeTheOracleAroundTheBlockLimit)
{
    for (const int count : {kThreshold - 1, kThreshold, kThreshold + 1}) {
        for (const char* unit : {"a", "=", "\r", "=\r\n", "QUFB", "a=41\xE9\r\n"}) {
            QByteArray in = QByteArray(unit).repeated(count / int(qstrlen(unit)) + 1).left(count);
            RecordingFile file;
            EXPECT_EQ(GetParam().run(in, &file, [] { return 0; }), 0);
            // Whole arrays would be printed on a difference.
            EXPECT_TRUE(file.written() == GetParam().expected(in)) << unit << ' ' << count;
        }
    }
}

TEST_P(CodecStream, BlocksAreFullAndOnlyTheLastIsShort)
{
    const QByteArray in = QByteArray("QUFBb GxvIHdvcmxk=41=\r\n\xE9").repeated(20000);
    RecordingFile file;
    int calls = 0;
    EXPECT_EQ(GetParam().run(in, &file, [&calls] { return ++calls, 0; }), 0);
    EXPECT_TRUE(file.written() == GetParam().expected(in));
    ASSERT_GT(file.writes().size(), 3U);
    for (std::size_t i = 0; i + 1 < file.writes().size(); ++i) {
        EXPECT_GE(file.writes()[i], kThreshold) << i;
        EXPECT_LE(file.writes()[i], kThreshold + 5) << i;
    }
    EXPECT_EQ(calls, GetParam().asksTheCallback ? int(file.writes().size()) - 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Forms, CodecStream, testing::ValuesIn(kForms),
                         [](const auto& row) { return row.param.name; });

struct BlockRow
{
    const char* name;
    const char* form;
    QByteArray in;
    Writes writes;
    int calls;
};

class CodecBlocks : public testing::TestWithParam<BlockRow>
{
};

TEST_P(CodecBlocks, GoOutAtTheirPoints)
{
    const auto& [name, formName, in, writes, calls] = GetParam();
    const auto form = std::find_if(kForms.begin(), kForms.end(), [&](const Form& candidate) {
        return qstrcmp(candidate.name, GetParam().form) == 0;
    });
    ASSERT_NE(form, kForms.end());
    RecordingFile file;
    int asked = 0;
    EXPECT_EQ(form->run(in, &file, [&asked] { return ++asked, 0; }), 0);
    EXPECT_EQ(file.writes(), writes);
    EXPECT_EQ(asked, calls);
    EXPECT_TRUE(file.written() == form->expected(in));
}

QByteArray times(const char* unit, int count)
{
    return QByteArray(unit).repeated(count);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CodecBlocks,
    testing::Values(
        // A decoder judges its block after each unit: a full one at the very end goes out with the
        // callback, and nothing follows.
        BlockRow{"decodeQp32767", "decodeQp", times("a", 32767), {32767}, 0},
        BlockRow{"decodeQp32768", "decodeQp", times("a", 32768), {32768}, 1},
        BlockRow{"decodeQp32769", "decodeQp", times("a", 32769), {32768, 1}, 1},
        BlockRow{"decodeQpEscapes", "decodeQp", times("=41", 32769), {32768, 1}, 1},
        BlockRow{"decodeQpTwoBlocks", "decodeQp", times("a", 65536), {32768, 32768}, 2},
        BlockRow{"decodeBase64Below", "decodeBase64", times("QUJD", 10922), {32766}, 0},
        BlockRow{"decodeBase64Past", "decodeBase64", times("QUJD", 10923), {32769}, 1},
        BlockRow{"decodeBase64PastAndOne", "decodeBase64", times("QUJD", 10924), {32769, 3}, 1},
        BlockRow{"decodeBase6432767", "decodeBase64", times("QUJD", 10922) + "QQ==", {32767}, 0},
        BlockRow{"decodeBase6432768", "decodeBase64", times("QUJD", 10922) + "QUI=", {32768}, 1},
        BlockRow{"decodeBase64TwoPast",
                 "decodeBase64",
                 times("QUJD", 10922) + "QQ==QUJD" + "QUJD",
                 {32770, 3},
                 1},
        BlockRow{"decodeBase64Pairs", "decodeBase64", times("QUI=", 16385), {32768, 2}, 1},
        BlockRow{"decodeBase64Lines",
                 "decodeBase64",
                 (times("QUJD", 19) + "\r\n").repeated(1200),
                 {32769, 32769, 2862},
                 2},
        // The quoted-printable encoder judges before each unit.
        BlockRow{"encodeQpUnbroken32767", "encodeQpUnbroken", times("a", 32767), {32767}, 0},
        BlockRow{"encodeQpUnbroken32768", "encodeQpUnbroken", times("a", 32768), {32768}, 0},
        BlockRow{"encodeQpUnbroken32769", "encodeQpUnbroken", times("a", 32769), {32768, 1}, 0},
        BlockRow{
            "encodeQpUnbrokenEscapes", "encodeQpUnbroken", times("\xE9", 10924), {32769, 3}, 0},
        // 72 columns a line: 455 lines make 32760 bytes, 8 more and the block is full.
        BlockRow{"encodeQpLines", "encodeQp", times("a", 69 * 455 + 9), {32768, 3}, 0},
        // A full block goes out before the final CR LF ...
        BlockRow{"encodeQpFinalLineEnd", "encodeQp", times("a", 69 * 455 + 8), {32768, 2}, 0},
        // ... and before a soft break: 11 lines of 73 bytes and 443 of 72 make 32699, and the next
        // line's 69 columns fill the block.
        BlockRow{"encodeQpSoftBreak",
                 "encodeQp",
                 (times("a", 67) + " ").repeated(11) + times("a", 69 * 444),
                 {32768, 3},
                 0},
        // A line's end goes with the group that fills the line: 420 lines and 2 groups.
        BlockRow{"encodeBase64Lines", "encodeBase64", times("AAA", 420 * 19 + 3), {32768, 6}, 0},
        BlockRow{
            "encodeBase64FullBlock", "encodeBase64", times("AAA", 420 * 19 + 2), {32768, 2}, 0},
        BlockRow{
            "encodeBase64LastGroup", "encodeBase64", times("AAA", 420 * 19 + 1) + "A", {32770}, 0},
        BlockRow{
            "encodeBase64UnbrokenFull", "encodeBase64Unbroken", times("AAA", 8192), {32768}, 0},
        BlockRow{"encodeBase64UnbrokenLastGroup",
                 "encodeBase64Unbroken",
                 times("AAA", 8191) + "A",
                 {32768},
                 0},
        BlockRow{"encodeBase64UnbrokenPast",
                 "encodeBase64Unbroken",
                 times("AAA", 8192) + "A",
                 {32768, 4},
                 0}),
    [](const auto& row) { return row.param.name; });

class StoppedStream : public testing::TestWithParam<Form>
{
};

TEST_P(StoppedStream, StopsBeforeTheBlockTheCallbackRefuses)
{
    const QByteArray in = times("QUFB", 50000);
    for (int stop = 1; stop <= 3; ++stop) {
        RecordingFile file;
        int calls = 0;
        EXPECT_EQ(GetParam().run(in, &file, [&] { return ++calls == stop ? -1 : 0; }), -1);
        EXPECT_EQ(calls, stop);
        EXPECT_EQ(file.writes().size(), std::size_t(stop) - 1);
        EXPECT_TRUE(GetParam().expected(in).startsWith(file.written()));
    }
}

TEST_P(StoppedStream, AnyOtherAnswerStopsToo)
{
    RecordingFile file;
    EXPECT_EQ(GetParam().run(times("QUFB", 50000), &file, [] { return 3; }), -1);
    EXPECT_EQ(file.writes(), Writes());
}

INSTANTIATE_TEST_SUITE_P(Forms, StoppedStream, testing::Values(kForms[2], kForms[5]),
                         [](const auto& row) { return row.param.name; });

} // namespace
