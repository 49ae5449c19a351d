// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <gtest/gtest.h>

namespace diff_test {

namespace {

struct ChangeRow
{
    const char* name;
    QByteArray message;
    QStringList more;
    QByteArray expected;
    int status = 0;
};

void PrintTo(const ChangeRow& row, std::ostream* out)
{
    *out << row.name;
}

class MessageDiff : public testing::TestWithParam<ChangeRow>
{
};

const QByteArray kHead = "--- a.eml\n+++ a.eml (parsed and written again)\n";
const QByteArray kMoved =
    kHead + "@@ -1,4 +1,4 @@\n-Subject: s\n From: a@b\n+Subject: s\n \n body\n";

} // namespace

TEST_P(MessageDiff, ShowsWhatWouldChange)
{
    const ToolRunner tool;
    tool.write("a.eml", GetParam().message);
    const ToolResult result = tool.run(QStringList{"diff", "a.eml"} + GetParam().more);
    EXPECT_EQ(result.out.toStdString(), GetParam().expected.toStdString());
    EXPECT_EQ(result.status, GetParam().status);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(tool.read("a.eml"), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, MessageDiff,
    testing::Values(
        ChangeRow{"Nothing", "From: a@b\r\nSubject: s\r\n\r\nbody\r\n", {"--strict"}, ""},
        ChangeRow{"MovedField", "Subject: s\r\nFrom: a@b\r\n\r\nbody\r\n", {}, kMoved},
        ChangeRow{"Strict", "Subject: s\r\nFrom: a@b\r\n\r\nbody\r\n", {"--strict"}, kMoved, 3},
        ChangeRow{"LineEndsLeftOut", "From: a@b\nSubject: s\n\nbody\n", {}, ""},
        ChangeRow{"LineEnds",
                  "From: a@b\n\nbody\n",
                  {"--line-ends"},
                  kHead + "@@ -1,3 +1,3 @@\n-From: a@b\\n\n-\\n\n"
                          "+From: a@b\\r\\n\n+\\r\\n\n body\\n\n"},
        ChangeRow{"ControlCharacters",
                  "Subject: \x1B[2J\tx\r\nFrom: a@b\r\n\r\nb\r\n",
                  {},
                  kHead + "@@ -1,4 +1,4 @@\n-Subject: \\x1B[2J\tx\n From: a@b\n"
                          "+Subject: \\x1B[2J\tx\n \n b\n"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(DiffCommand, IsColouredOnRequest)
{
    const ToolRunner tool;
    tool.write("a.eml", "Subject: s\r\nFrom: a@b\r\n\r\nbody\r\n");
    const QByteArray out = tool.run({"diff", "a.eml", "--color", "always"}).out;
    EXPECT_TRUE(out.contains("\x1B[31m-Subject: s\x1B[0m\n")) << out.constData();
    EXPECT_TRUE(out.contains("\x1B[32m+Subject: s\x1B[0m\n")) << out.constData();
    EXPECT_FALSE(tool.run({"diff", "a.eml"}).out.contains('\x1B'));
}

TEST(DiffCommand, ReadsAnMboxAndStandardInput)
{
    const ToolRunner tool;
    const QByteArray mail = "Subject: s\nFrom: a@b\n\nbody\n";
    const QByteArray separator = "From a@b Mon Jun  3 10:15:00 2024\n";
    tool.write("a.mbox", separator + mail + '\n' + separator + mail);
    const ToolResult mbox = tool.run({"diff", "a.mbox"});
    EXPECT_EQ(mbox.status, 0) << testing::PrintToString(mbox);
    EXPECT_EQ(mbox.out.count("--- a.mbox, message "), 2) << testing::PrintToString(mbox);
    EXPECT_EQ(tool.run({"diff", "-"}, mail).out.count("+++ standard input "), 1);
}

} // namespace diff_test
