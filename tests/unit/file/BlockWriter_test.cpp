// SPDX-License-Identifier: MIT
#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_Util.h"

#include <numeric>

namespace block_writer_test {

namespace {

using Writes = std::vector<qint64>;

TEST(WriteFile, WaitsForTheThreshold)
{
    RecordingFile file;
    char buffer[16] = "abcdefgh";
    int used = 7;
    int calls = 0;
    EXPECT_EQ(EMAIL_Util::writeFile(&file, buffer, used, 8, [&calls] { return ++calls, -1; }), 0);
    EXPECT_EQ(used, 7);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(QByteArray(buffer), "abcdefgh");
    EXPECT_EQ(file.writes(), Writes());
}

TEST(WriteFile, WritesAFullBlockAndClearsItsHead)
{
    for (const int used : {8, 9}) {
        RecordingFile file;
        char buffer[16] = "abcdefghi";
        int left = used;
        int calls = 0;
        EXPECT_EQ(EMAIL_Util::writeFile(&file, buffer, left, 8, [&calls] { return ++calls, 0; }),
                  0);
        EXPECT_EQ(calls, 1);
        EXPECT_EQ(left, 0);
        EXPECT_EQ(QByteArray(buffer, 9), QByteArray("\0\0\0\0efghi", 9));
        EXPECT_EQ(file.written(), QByteArray("abcdefghi").left(used));
        EXPECT_EQ(file.writes(), Writes{used});
    }
}

TEST(WriteFile, HandsBackWhatTheCallbackSays)
{
    for (const int answer : {-1, 1, 42}) {
        RecordingFile file;
        char buffer[16] = "abcd";
        int used = 4;
        EXPECT_EQ(EMAIL_Util::writeFile(&file, buffer, used, 4, [answer] { return answer; }),
                  answer);
        EXPECT_EQ(used, 4);
        EXPECT_EQ(QByteArray(buffer), "abcd");
        EXPECT_EQ(file.writes(), Writes());
    }
}

TEST(WriteFile, AFileThatIsNotOpenForWritingFails)
{
    RecordingFile file;
    file.close();
    char buffer[16] = "abcd";
    int used = 4;
    EXPECT_EQ(EMAIL_Util::writeFile(&file, buffer, used, 4), -1);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(EMAIL_Util::writeFile(&file, buffer, used, 4), -1);
    EXPECT_EQ(used, 4);
}

TEST(WriteFile, AFullDiskFails)
{
    for (const int length : {4, 100, 16384, 16385, 32768}) {
        QFile file("/dev/full");
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        QByteArray buffer(length, 'x');
        int used = length;
        EXPECT_EQ(EMAIL_Util::writeFile(&file, buffer.data(), used, 1), -1) << length;
    }
}

// 0, 1, 2, ...
std::vector<std::size_t> firstNumbers(std::size_t count)
{
    std::vector<std::size_t> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0U);
    return numbers;
}

struct RawRow
{
    int length;
    Writes writes;
};

class WriteRawData : public testing::TestWithParam<RawRow>
{
};

TEST_P(WriteRawData, CutsBlocksAndAsksBeforeEach)
{
    const auto& [length, writes] = GetParam();
    RecordingFile file;
    QByteArray data(length, 'x');
    for (int i = 0; i < length; ++i)
        data[i] = static_cast<char>(i * 7);
    EXPECT_EQ(EMAIL_Util::writeRawData(data.constData(), length, &file, file.notingCallback()), 0);
    EXPECT_EQ(file.written(), data);
    EXPECT_EQ(file.writes(), writes);
    EXPECT_EQ(file.calls(), firstNumbers(writes.size()));
}

INSTANTIATE_TEST_SUITE_P(Rows, WriteRawData,
                         testing::Values(RawRow{0, {}}, RawRow{1, {1}}, RawRow{32767, {32767}},
                                         RawRow{32768, {32768}}, RawRow{32769, {32768, 1}},
                                         RawRow{65536, {32768, 32768}},
                                         RawRow{70000, {32768, 32768, 4464}}),
                         [](const auto& row) { return std::to_string(row.param.length); });

TEST(WriteRawDataCallback, StopsAtTheFirstNonZeroAnswer)
{
    const QByteArray data(70000, 'x');
    for (const int answer : {-1, 5}) {
        RecordingFile file;
        int calls = 0;
        const auto callback = [&] { return ++calls == 3 ? answer : 0; };
        EXPECT_EQ(EMAIL_Util::writeRawData(data.constData(), 70000, &file, callback), answer);
        EXPECT_EQ(file.written().size(), 65536);
    }
}

TEST(WriteRawDataArguments, NothingToWriteIsNeverAFailure)
{
    QFile closed;
    int calls = 0;
    const auto callback = [&calls] { return ++calls, -1; };
    EXPECT_EQ(EMAIL_Util::writeRawData("abc", 0, &closed, callback), 0);
    EXPECT_EQ(EMAIL_Util::writeRawData("abc", -5, &closed, callback), 0);
    EXPECT_EQ(EMAIL_Util::writeRawData(nullptr, 5, &closed, callback), 0);
    EXPECT_EQ(calls, 0);
}

} // namespace

} // namespace block_writer_test
