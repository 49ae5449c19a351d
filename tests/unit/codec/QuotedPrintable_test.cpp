// SPDX-License-Identifier: MIT
#include "tests/support/AllStrings.h"
#include "tests/support/CodecOracles.h"
#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_Cal.h"
#include "utility/EMAIL_Util.h"

#include <map>

namespace quoted_printable_test {

namespace {

QByteArray encode(const QByteArray& data, int breakLines)
{
    return EMAIL_Util::encQp(data.constData(), static_cast<unsigned long>(data.size()), breakLines);
}

QByteArray decode(const QByteArray& text)
{
    unsigned long length = 0;
    const QByteArray data = EMAIL_Util::decQp(text.constData(), &length);
    EXPECT_EQ(length, static_cast<unsigned long>(data.size()));
    return data;
}

struct EncodeRow
{
    const char* name;
    QByteArray data;
    int breakLines;
    QByteArray text;
};

class QpEncode : public testing::TestWithParam<EncodeRow>
{
};

TEST_P(QpEncode, InMemory)
{
    EXPECT_EQ(encode(GetParam().data, GetParam().breakLines), GetParam().text);
}

TEST_P(QpEncode, ToFile)
{
    const auto& [name, data, breakLines, text] = GetParam();
    RecordingFile file;
    EXPECT_EQ(EMAIL_Util::encQp(data.constData(), static_cast<unsigned long>(data.size()), &file,
                                breakLines),
              0);
    EXPECT_EQ(file.written(), text);
}

TEST_P(QpEncode, ForTheCalendar)
{
    const auto& [name, data, breakLines, text] = GetParam();
    EXPECT_EQ(encQp_Cal(data.constData(), static_cast<unsigned long>(data.size()), breakLines),
              text);
}

QByteArray a(int count)
{
    return QByteArray(count, 'a');
}

INSTANTIATE_TEST_SUITE_P(
    Rows, QpEncode,
    testing::Values(
        EncodeRow{"nothing", "", 1, ""}, EncodeRow{"space", "a b", 1, "a=20b\r\n"},
        EncodeRow{"spaceUnbroken", "a b", 0, "a=20b"}, EncodeRow{"nonZeroBreaks", "a", -1, "a\r\n"},
        EncodeRow{"lineEnd", "x=y\r\n", 1, "x=3Dy=0D=0A\r\n"},
        EncodeRow{"column69Breaks", a(69), 1, a(69) + "=\r\n"},
        EncodeRow{"column68DoesNot", a(68), 1, a(68) + "\r\n"},
        EncodeRow{"column70", a(67) + " ", 1, a(67) + "=20=\r\n"},
        EncodeRow{"column71", a(68) + " ", 1, a(68) + "=20=\r\n"},
        EncodeRow{"breakThenMore", a(70), 1, a(69) + "=\r\na\r\n"},
        EncodeRow{"unbrokenLong", a(200), 0, a(200)},
        EncodeRow{"crNeverEndsALine", a(67) + "\r\n", 1, a(67) + "=0D=0A=\r\n"},
        EncodeRow{"crPastTheColumn", a(68) + "\r\n", 1, a(68) + "=0D=0A=\r\n"},
        EncodeRow{"breakAfterTheByteBehindCr", a(68) + "\rbc", 1, a(68) + "=0Db=\r\nc\r\n"},
        EncodeRow{"runOfCr", QByteArray(100, '\r'), 1, QByteArray("=0D").repeated(100) + "\r\n"},
        EncodeRow{"runOfCrThenOther", QByteArray(100, '\r') + "b", 1,
                  QByteArray("=0D").repeated(100) + "b=\r\n"},
        EncodeRow{"upperCaseDigits", "\xAB\xEF", 0, "=AB=EF"},
        EncodeRow{"nul", QByteArray(1, '\0'), 0, "=00"}),
    [](const auto& row) { return row.param.name; });

TEST(QpEncodeArguments, NullDataGivesNothing)
{
    EXPECT_EQ(EMAIL_Util::encQp(nullptr, 5, 1), "");
    RecordingFile file;
    EXPECT_EQ(EMAIL_Util::encQp(nullptr, 5, &file, 1), 0);
    EXPECT_EQ(file.written(), "");
}

TEST(QpEncodeArguments, AResultThatFitsNoArrayIsEmpty)
{
    for (const unsigned long length : {~0UL, QCString::longestLength + 1UL})
        EXPECT_EQ(EMAIL_Util::encQp("abc", length, 1), "") << length;
}

TEST(QpEncodeTable, EveryByte)
{
    for (int byte = 0; byte < 256; ++byte) {
        const QByteArray data(1, static_cast<char>(byte));
        const bool copied = (byte >= 0x24 && byte <= 0x3C) || (byte >= 0x3E && byte <= 0x7E);
        EXPECT_EQ(encode(data, 0), copied ? data : "=" + data.toHex().toUpper()) << byte;
    }
}

struct DecodeRow
{
    const char* name;
    QByteArray text;
    QByteArray data;
};

class QpDecode : public testing::TestWithParam<DecodeRow>
{
};

TEST_P(QpDecode, InMemory)
{
    EXPECT_EQ(decode(GetParam().text), GetParam().data);
}

TEST_P(QpDecode, ToFile)
{
    RecordingFile file;
    const QByteArray& text = GetParam().text;
    EXPECT_EQ(EMAIL_Util::decQp(text.constData(), static_cast<int>(text.size()), &file), 0);
    EXPECT_EQ(file.written(), GetParam().data);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, QpDecode,
    testing::Values(
        DecodeRow{"nothing", "", ""}, DecodeRow{"escapeAndSoftBreak", "a=3D=\r\nb", "a=b"},
        DecodeRow{"softBreakWithoutCr", "a=\nb", "ab"}, DecodeRow{"cutEscape", "ab=4", "ab"},
        DecodeRow{"loneEquals", "ab=", "ab"}, DecodeRow{"equalsCrAtTheEnd", "ab=\r", "ab"},
        DecodeRow{"softBreakAtTheEnd", "ab=\r\n", "ab"},
        DecodeRow{"equalsLfAtTheEnd", "ab=\n", "ab"}, DecodeRow{"lowerCaseDigits", "=e9", "\xE9"},
        DecodeRow{"mixedCaseDigits", "=eF", "\xEF"}, DecodeRow{"badFirstDigit", "=G1", "\x61"},
        DecodeRow{"badSecondDigit", "=1G", "\x56"}, DecodeRow{"badDigits", "=GG", "\xA6"},
        DecodeRow{"equalsAsDigit", "==41",
                  "\x64"
                  "1"},
        DecodeRow{"equalsCrOther", "=\rA", "\x6A"},
        DecodeRow{"whiteSpaceStays", "a \t\r\nb \n", "a \t\r\nb \n"},
        DecodeRow{"spaceBeforeLineEndIsNoSoftBreak", "a= \r\nb", QByteArray("a\xA6\nb")},
        DecodeRow{"eightBitStays", "\xE9t\xE9", "\xE9t\xE9"}),
    [](const auto& row) { return row.param.name; });

TEST(QpDecodeArguments, MissingPointersLeaveTheLength)
{
    unsigned long length = 77;
    EXPECT_EQ(EMAIL_Util::decQp("a", nullptr), "");
    EXPECT_EQ(EMAIL_Util::decQp(nullptr, &length), "");
    EXPECT_EQ(length, 77UL);
    EXPECT_EQ(EMAIL_Util::decQp("", &length), "");
    EXPECT_EQ(length, 0UL);
}

TEST(QpDecodeArguments, MemoryFormEndsAtNulFileFormReadsOn)
{
    const QByteArray text("a\0=3D=\0001b", 9);
    EXPECT_EQ(decode(text), "a");
    RecordingFile file;
    EXPECT_EQ(EMAIL_Util::decQp(text.constData(), 9, &file), 0);
    EXPECT_EQ(file.written(), QByteArray("a\0=\x61"
                                         "b",
                                         5));
}

TEST(QpDecodeArguments, FileFormReadsExactlyTheGivenLength)
{
    RecordingFile file;
    EXPECT_EQ(EMAIL_Util::decQp("ab=3Dc", 4, &file), 0);
    EXPECT_EQ(EMAIL_Util::decQp("ab", 0, &file), 0);
    EXPECT_EQ(EMAIL_Util::decQp("ab", -1, &file), 0);
    EXPECT_EQ(EMAIL_Util::decQp(nullptr, 2, &file), 0);
    EXPECT_EQ(file.written(), "ab");
}

TEST(QpDecodeArguments, MemoryFormNeverCallsTheCallback)
{
    int calls = 0;
    unsigned long length = 0;
    EMAIL_Util::decQp(a(100000).constData(), &length, [&calls] { return ++calls, -1; });
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(length, 100000UL);
}

TEST(QpExhaustive, ShortStrings)
{
    std::map<int, int> outcomes;
    forAllStrings("=\r\n4eG ", 6, [&outcomes](const QByteArray& text) {
        const QByteArray data = decode(text);
        ++outcomes[static_cast<int>(data.size())];
        ASSERT_EQ(data, oracle::decodeQp(text)) << testing::PrintToString(text);
    });
    const std::map<int, int> expected{{0, 38},    {1, 886},   {2, 8677}, {3, 13176},
                                      {4, 52272}, {5, 15552}, {6, 46656}};
    EXPECT_EQ(outcomes, expected);
}

TEST(QpExhaustive, TwoByteInputs)
{
    for (int pair = 0; pair < 65536; ++pair) {
        const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
        const QByteArray data(bytes, 2);
        const QByteArray text = encode(data, 1);
        ASSERT_EQ(text, oracle::encodeQp(data, true)) << pair;
        ASSERT_EQ(decode(text), data + "\r\n") << pair;
        const QByteArray escape("=" + data + "=" + data);
        ASSERT_EQ(decode(escape), oracle::decodeQp(QByteArray(escape.constData()))) << pair;
    }
}

TEST(QpExhaustive, EveryByteAtEveryColumn)
{
    for (int byte = 0; byte < 256; ++byte) {
        for (int column = 0; column <= 72; ++column) {
            const QByteArray data = a(column) + static_cast<char>(byte) + a(3);
            ASSERT_EQ(encode(data, 1), oracle::encodeQp(data, true)) << byte << ' ' << column;
        }
    }
}

} // namespace

} // namespace quoted_printable_test
