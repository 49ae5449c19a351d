// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <gtest/gtest.h>

namespace lint_test {

namespace {

QByteArray mixed(const QByteArray& body)
{
    return "Content-Type: multipart/mixed; boundary=bound\n\n" + body;
}

} // namespace

TEST(LintForPeople, IsALineAFinding)
{
    const ToolRunner tool;
    tool.write("a.eml", mixed("see\n--bound\nA: b\n\nx\n--bound--\n"));
    EXPECT_EQ(
        tool.run({"lint", "a.eml"}).out,
        "a.eml: note: part 1: bytes in front of the first part belong to no part (4 bytes at 47) "
        "[bytes-in-no-part]\n");
}

TEST(LintForPrograms, IsAnObjectAFile)
{
    const ToolRunner tool;
    tool.write("a.eml", mixed("see\n--bound\nA: b\n\nx\n--bound--\n"));
    EXPECT_EQ(
        tool.run({"lint", "--json", "a.eml"}).out,
        "{\"file\":\"a.eml\",\"findings\":[{\"code\":\"bytes-in-no-part\",\"explanation\":\"bytes "
        "in "
        "front of the first part belong to no part\",\"length\":4,\"offset\":47,\"part\":\"1\","
        "\"severity\":\"note\"}]}\n");
}

namespace {

struct StatusRow
{
    const char* name;
    QStringList arguments;
    int status;
};

class LintStatus : public testing::TestWithParam<StatusRow>
{
};

} // namespace

TEST_P(LintStatus, SaysWhatWasFound)
{
    const ToolRunner tool;
    tool.write("clean.eml", "A: b\n\nx\n");
    tool.write("note.eml", mixed("see\n--bound\nA: b\n\nx\n--bound--\n"));
    tool.write("warning.eml", "A: b\n\n\xE9\n");
    tool.write("error.eml", "From: a@b.example\nFrom: c@d.example\n\nx\n");
    EXPECT_EQ(tool.run(QStringList{"lint"} + GetParam().arguments).status, GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, LintStatus,
    testing::Values(StatusRow{"WithoutStrict", {"error.eml"}, 0},
                    StatusRow{"Clean", {"--strict", "clean.eml"}, 0},
                    StatusRow{"Note", {"--strict", "note.eml"}, 0},
                    StatusRow{"Warning", {"--strict", "warning.eml"}, 3},
                    StatusRow{"ErrorInFrontOfClean", {"--strict", "error.eml", "clean.eml"}, 3},
                    StatusRow{"NoFile", {"--strict", "error.eml", "none.eml"}, 1}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace lint_test
