// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <gtest/gtest.h>

namespace words_test {

namespace {

struct WordsRow
{
    const char* name;
    QStringList arguments;
    QByteArray expected;
};

class Words : public testing::TestWithParam<WordsRow>
{
};

} // namespace

TEST_P(Words, Prints)
{
    const ToolRunner tool;
    const ToolResult result = tool.run(QStringList("words") + GetParam().arguments);
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(result.out, GetParam().expected + '\n');
}

INSTANTIATE_TEST_SUITE_P(
    Tool, Words,
    testing::Values(
        WordsRow{"Decode", {"decode", "=?utf-8?Q?caf=C3=A9?="}, "café"},
        WordsRow{"DecodePlainUtf8", {"decode", "café"}, "café"},
        WordsRow{"DecodeAsDeclared", {"decode", "é", "--charset", "iso-8859-1"}, "Ã©"},
        WordsRow{"DecodeLineBreak", {"decode", "=?utf-8?Q?a=0D=0Ab=1B?="}, "a\\r\\nb\\x1B"},
        WordsRow{"DecodeMarks", {"decode", "=?utf-8?B?4oCuZnA=?="}, "\\u202Efp"},
        WordsRow{"EncodePlain", {"encode", "Hello"}, "Hello"},
        WordsRow{"Encode", {"encode", "é"}, "=?utf-8?b?w6k=?="},
        WordsRow{
            "EncodeAsAsked", {"encode", "é", "--charset", "iso-8859-1"}, "=?iso-8859-1?b?6Q==?="},
        WordsRow{"EncodeLongText",
                 {"encode", QString(24, QChar(0x436))},
                 "=?utf-8?b?" + QByteArray("0LbQttC2").repeated(4) + "?=\r\n\t=?utf-8?b?" +
                     QByteArray("0LbQttC2").repeated(4) + "?="},
        WordsRow{"EncodeWhatTheCharsetLacks",
                 {"encode", "λ", "--charset", "iso-8859-1"},
                 "=?utf-8?b?zrs=?="},
        WordsRow{"TextLikeAnOption", {"encode", "--", "--help"}, "--help"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace words_test
