// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <gtest/gtest.h>

namespace headers_test {

namespace {

struct HeadersRow
{
    const char* name;
    QStringList options;
    QByteArray mail;
    QByteArray expected;
};

const QByteArray kFolded = "Subject: one\r\n\ttwo\r\nx-odd:  a \r\nX-Odd: b\r\n\r\nbody\r\n";

class Headers : public testing::TestWithParam<HeadersRow>
{
};

} // namespace

TEST_P(Headers, Prints)
{
    const ToolRunner tool;
    tool.write("a.eml", GetParam().mail);
    const ToolResult result = tool.run(QStringList{"headers", "a.eml"} + GetParam().options);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, GetParam().expected);
    EXPECT_EQ(result.err, "");
}

INSTANTIATE_TEST_SUITE_P(
    Tool, Headers,
    testing::Values(
        HeadersRow{"AsStored", {}, kFolded, "Subject: one\n\ttwo\nx-odd: a\nX-Odd: b\n"},
        HeadersRow{"Unfolded", {"--unfold"}, kFolded, "Subject: one\ttwo\nx-odd: a\nX-Odd: b\n"},
        HeadersRow{
            "Raw", {"--raw"}, kFolded, "Subject: one\r\n\ttwo\r\nx-odd:  a \r\nX-Odd: b\r\n"},
        HeadersRow{"CanonicalName", {}, "subject: Hi\n\n", "Subject: Hi\n"},
        HeadersRow{"ControlCharacters",
                   {},
                   "Subject: \x1B]0;evil\x07\xC2\x9B\xE9\n\n",
                   "Subject: \\x1B]0;evil\\x07\\u009B\\xE9\n"},
        HeadersRow{"RawKeepsEveryByte", {"--raw"}, "A: \x1B\xE9\n\nb", "A: \x1B\xE9\n"},
        HeadersRow{"NoHeader", {}, "only text\n", ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(HeadersOfSeveralFiles, StandUnderTheirNames)
{
    const ToolRunner tool;
    tool.write("a.eml", "A: 1\n\n");
    tool.write("b.eml", "B: 2\n\n");
    EXPECT_EQ(tool.run({"headers", "a.eml", "b.eml"}).out,
              "==> a.eml <==\nA: 1\n\n==> b.eml <==\nB: 2\n");
}

TEST(HeadersOfAReadOnlyFile, ArePrinted)
{
    const ToolRunner tool;
    QFile::setPermissions(tool.write("a.eml", "A: 1\n\n"), QFile::ReadOwner);
    EXPECT_EQ(tool.run({"headers", "a.eml"}).out, "A: 1\n");
}

} // namespace headers_test
