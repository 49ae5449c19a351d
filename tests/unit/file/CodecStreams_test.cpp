// SPDX-License-Identifier: MIT
#include "tests/support/CodecOracles.h"
#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_Util.h"

#include <algorithm>
#include <map>

namespace codec_streams_test {

// What the file forms have in common: the points at which blocks go out and the callback is asked,
// and what becomes of a full disk.
namespace {

constexpr int kThreshold = 32768;

using Writes = std::vector<qint64>;
using Calls = std::vector<std::size_t>;

// A file on a disk that has room for so many bytes.
class SmallFile : public RecordingFile
{
public:
    explicit SmallFile(qint64 room) : mRoom(room) {}

protected:
    qint64 writeData(const char* data, qint64 length) override
    {
        const qint64 taken = std::min(length, mRoom);
        mRoom -= taken;
        return taken == 0 ? -1 : RecordingFile::writeData(data, taken);
    }

private:
    qint64 mRoom;
};

enum class Asks { Never, BeforeFullBlocks, BeforeEveryBlock };

struct Form
{
    const char* name;
    int (*run)(const QByteArray& in, QFile* out, const ProgressCallback& callback);
    QByteArray (*expected)(const QByteArray& in);
    // An input whose output is made of all of `bytes`.
    QByteArray (*textOf)(const QByteArray& bytes);
    Asks asks;
};

QByteArray same(const QByteArray& bytes)
{
    return bytes;
}

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
     [](const QByteArray& in) { return oracle::encodeBase64(in, true); }, same, Asks::Never},
    {"encodeBase64Unbroken",
     [](const QByteArray& in, QFile* out, const ProgressCallback&) {
         return EMAIL_Util::encB64(in.constData(), size(in), out, 0);
     },
     [](const QByteArray& in) { return oracle::encodeBase64(in, false); }, same, Asks::Never},
    {"decodeBase64",
     [](const QByteArray& in, QFile* out, const ProgressCallback& callback) {
         return EMAIL_Util::decB64(in.constData(), length(in), out, callback);
     },
     oracle::decodeBase64, [](const QByteArray& in) { return oracle::encodeBase64(in, true); },
     Asks::BeforeFullBlocks},
    {"encodeQp",
     [](const QByteArray& in, QFile* out, const ProgressCallback&) {
         return EMAIL_Util::encQp(in.constData(), size(in), out, 1);
     },
     [](const QByteArray& in) { return oracle::encodeQp(in, true); }, same, Asks::Never},
    {"encodeQpUnbroken",
     [](const QByteArray& in, QFile* out, const ProgressCallback&) {
         return EMAIL_Util::encQp(in.constData(), size(in), out, 0);
     },
     [](const QByteArray& in) { return oracle::encodeQp(in, false); }, same, Asks::Never},
    {"decodeQp",
     [](const QByteArray& in, QFile* out, const ProgressCallback& callback) {
         return EMAIL_Util::decQp(in.constData(), length(in), out, callback);
     },
     oracle::decodeQp, same, Asks::BeforeFullBlocks},
    {"writeRawData",
     [](const QByteArray& in, QFile* out, const ProgressCallback& callback) {
         return EMAIL_Util::writeRawData(in.constData(), length(in), out, callback);
     },
     same, same, Asks::BeforeEveryBlock},
    {"encodeByCopying",
     [](const QByteArray& in, QFile* out, const ProgressCallback&) {
         return EMAIL_Util::encWithCTE(in.constData(), length(in), out, CTE_8BIT);
     },
     same, same, Asks::Never},
    {"decodeByCopying",
     [](const QByteArray& in, QFile* out, const ProgressCallback& callback) {
         return EMAIL_Util::decFromCTE(in.constData(), length(in), out, CTE_BINARY, callback);
     },
     same, same, Asks::BeforeEveryBlock},
};

class EveryStream : public testing::TestWithParam<Form>
{
};

// The codecs alone, whose text has an end to be written.
class CodecStream : public testing::TestWithParam<Form>
{
};

// An encoder writes at least as many bytes as it reads, a decoder and a copy exactly `count`: what
// QFile holds back, one byte more, and several blocks.
TEST_P(EveryStream, FullDiskIsReported)
{
    for (const int count : {1, 100, 16384, 16385, 32768, 32769, 70000}) {
        const QByteArray in = GetParam().textOf(QByteArray(count, 'a'));
        ASSERT_GE(GetParam().expected(in).size(), count);
        QFile full("/dev/full");
        ASSERT_TRUE(full.open(QIODevice::WriteOnly));
        EXPECT_EQ(GetParam().run(in, &full, nullptr), -1) << count;
    }
}

// As when a quota runs out in the middle of a block.
TEST_P(EveryStream, AShortWriteIsReported)
{
    const QByteArray in = GetParam().textOf(QByteArray(70000, 'a'));
    for (const qint64 room : {0, 1, 32767, 32768, 40000, 69999}) {
        SmallFile file(room);
        EXPECT_EQ(GetParam().run(in, &file, nullptr), -1) << room;
        EXPECT_TRUE(GetParam().expected(in).startsWith(file.written())) << room;
    }
}

TEST_P(EveryStream, AFileThatIsNotOpenFails)
{
    QFile closed;
    EXPECT_EQ(GetParam().run("QUJD", &closed, nullptr), -1);
}

TEST_P(EveryStream, NothingIsWrittenForNothing)
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

TEST_P(EveryStream, ReadsLikeTheOracleAroundTheBlockLimit)
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

TEST_P(EveryStream, BlocksAreFullAndOnlyTheLastIsShort)
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
    const int blocks = static_cast<int>(file.writes().size());
    const std::map<Asks, int> expected{
        {Asks::Never, 0}, {Asks::BeforeFullBlocks, blocks - 1}, {Asks::BeforeEveryBlock, blocks}};
    EXPECT_EQ(calls, expected.at(GetParam().asks));
}

INSTANTIATE_TEST_SUITE_P(Forms, EveryStream, testing::ValuesIn(kForms),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(Forms, CodecStream, testing::ValuesIn(kForms.begin(), kForms.begin() + 6),
                         [](const auto& row) { return row.param.name; });

struct BlockRow
{
    const char* name;
    const char* form;
    QByteArray in;
    Writes writes;
    // Behind how many writes each call comes.
    Calls calls;
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
    EXPECT_EQ(form->run(in, &file, file.notingCallback()), 0);
    EXPECT_EQ(file.writes(), writes);
    EXPECT_EQ(file.calls(), calls);
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
        BlockRow{"decodeQp32767", "decodeQp", times("a", 32767), {32767}, {}},
        BlockRow{"decodeQp32768", "decodeQp", times("a", 32768), {32768}, {0}},
        BlockRow{"decodeQp32769", "decodeQp", times("a", 32769), {32768, 1}, {0}},
        BlockRow{"decodeQpEscapes", "decodeQp", times("=41", 32769), {32768, 1}, {0}},
        BlockRow{"decodeQpTwoBlocks", "decodeQp", times("a", 65536), {32768, 32768}, {0, 1}},
        BlockRow{"decodeBase64Below", "decodeBase64", times("QUJD", 10922), {32766}, {}},
        BlockRow{"decodeBase64Past", "decodeBase64", times("QUJD", 10923), {32769}, {0}},
        BlockRow{"decodeBase64PastAndOne", "decodeBase64", times("QUJD", 10924), {32769, 3}, {0}},
        BlockRow{"decodeBase6432767", "decodeBase64", times("QUJD", 10922) + "QQ==", {32767}, {}},
        BlockRow{"decodeBase6432768", "decodeBase64", times("QUJD", 10922) + "QUI=", {32768}, {0}},
        BlockRow{"decodeBase64TwoPast",
                 "decodeBase64",
                 times("QUJD", 10922) + "QQ==QUJD" + "QUJD",
                 {32770, 3},
                 {0}},
        BlockRow{"decodeBase64Pairs", "decodeBase64", times("QUI=", 16385), {32768, 2}, {0}},
        BlockRow{"decodeBase64Lines",
                 "decodeBase64",
                 (times("QUJD", 19) + "\r\n").repeated(1200),
                 {32769, 32769, 2862},
                 {0, 1}},
        // The quoted-printable encoder judges before each unit.
        BlockRow{"encodeQpUnbroken32767", "encodeQpUnbroken", times("a", 32767), {32767}, {}},
        BlockRow{"encodeQpUnbroken32768", "encodeQpUnbroken", times("a", 32768), {32768}, {}},
        BlockRow{"encodeQpUnbroken32769", "encodeQpUnbroken", times("a", 32769), {32768, 1}, {}},
        BlockRow{
            "encodeQpUnbrokenEscapes", "encodeQpUnbroken", times("\xE9", 10924), {32769, 3}, {}},
        // 72 columns a line: 455 lines make 32760 bytes, 8 more and the block is full.
        BlockRow{"encodeQpLines", "encodeQp", times("a", 69 * 455 + 9), {32768, 3}, {}},
        // A full block goes out before the final CR LF ...
        BlockRow{"encodeQpFinalLineEnd", "encodeQp", times("a", 69 * 455 + 8), {32768, 2}, {}},
        // ... and before a soft break: 11 lines of 73 bytes and 443 of 72 make 32699, and the next
        // line's 69 columns fill the block.
        BlockRow{"encodeQpSoftBreak",
                 "encodeQp",
                 (times("a", 67) + " ").repeated(11) + times("a", 69 * 444),
                 {32768, 3},
                 {}},
        // 420 lines and 2 groups fill a block.
        BlockRow{"encodeBase64Lines", "encodeBase64", times("AAA", 420 * 19 + 3), {32768, 6}, {}},
        // A line's end goes with the group that fills the line: the nineteenth block holds 32768
        // bytes without it. (In the tenth no group ends there.)
        BlockRow{"encodeBase64LineEndStaysWithItsLine",
                 "encodeBase64",
                 times("AAA", 152000),
                 {32768, 32768, 32768, 32768, 32768, 32768, 32768, 32768, 32768, 32770,
                  32768, 32768, 32768, 32768, 32768, 32768, 32768, 32768, 32770, 1404},
                 {}},
        BlockRow{
            "encodeBase64FullBlock", "encodeBase64", times("AAA", 420 * 19 + 2), {32768, 2}, {}},
        BlockRow{
            "encodeBase64LastGroup", "encodeBase64", times("AAA", 420 * 19 + 1) + "A", {32770}, {}},
        BlockRow{
            "encodeBase64UnbrokenFull", "encodeBase64Unbroken", times("AAA", 8192), {32768}, {}},
        BlockRow{"encodeBase64UnbrokenLastGroup",
                 "encodeBase64Unbroken",
                 times("AAA", 8191) + "A",
                 {32768},
                 {}},
        BlockRow{"encodeBase64UnbrokenPast",
                 "encodeBase64Unbroken",
                 times("AAA", 8192) + "A",
                 {32768, 4},
                 {}}),
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

} // namespace codec_streams_test
