// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <QFileInfo>
#include <gtest/gtest.h>

namespace reassemble_test {

namespace {

const QByteArray kMail = "X-A: 1\r\nSubject: Hi\r\nFrom: a@b.example\r\n\r\ntext\r\n";
const QByteArray kAssembled = "From: a@b.example\r\nSubject: Hi\r\nX-A: 1\r\n\r\ntext\r\n";

} // namespace

TEST(Reassemble, WritesToStandardOutput)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    const ToolResult result = tool.run({"reassemble", "a.eml"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, kAssembled);
}

TEST(Reassemble, WritesToAFileWithTheModeOfNewFiles)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    EXPECT_EQ(tool.run({"reassemble", "a.eml", "--out", "b.eml"}).status, 0);
    EXPECT_EQ(tool.read("b.eml"), kAssembled);
    EXPECT_EQ(tool.files(), QStringList({"a.eml", "b.eml"}));
    EXPECT_EQ(QFileInfo(tool.path("b.eml")).permissions(),
              QFileInfo(tool.path("a.eml")).permissions());
}

TEST(Reassemble, ReplacesItsOwnInput)
{
    const ToolRunner tool;
    QFile::setPermissions(tool.write("a.eml", kMail), QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(tool.run({"reassemble", "a.eml", "--out", "a.eml"}).status, 0);
    EXPECT_EQ(tool.read("a.eml"), kAssembled);
    EXPECT_FALSE(QFileInfo(tool.path("a.eml")).permissions() & QFile::ReadOther);
}

TEST(Reassemble, FollowsALinkToTheFileBehindIt)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    tool.write("target.eml", "old");
    QFile::link("target.eml", tool.path("link.eml"));
    EXPECT_EQ(tool.run({"reassemble", "a.eml", "--out", "link.eml"}).status, 0);
    EXPECT_TRUE(QFileInfo(tool.path("link.eml")).isSymLink());
    EXPECT_EQ(tool.read("target.eml"), kAssembled);
}

TEST(Reassemble, RefusesALinkThatLeadsNowhere)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    QFile::link("nowhere.eml", tool.path("link.eml"));
    const ToolResult result = tool.run({"reassemble", "a.eml", "--out", "link.eml"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tarvomime: link.eml: is a link that leads nowhere\n");
    EXPECT_TRUE(QFileInfo(tool.path("link.eml")).isSymLink());
}

TEST(Reassemble, AFullDiskIsAnErrorLine)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    const ToolResult result = tool.run({"reassemble", "a.eml", "--out", "/dev/full"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tarvomime: /dev/full: No space left on device\n");
}

struct BadTargetRow
{
    const char* name;
    const char* target;
    const char* reason;
};

class BadTarget : public testing::TestWithParam<BadTargetRow>
{
};

TEST_P(BadTarget, IsAnErrorLine)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    const ToolResult result = tool.run({"reassemble", "a.eml", "--out", GetParam().target});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              QByteArray("tarvomime: ") + GetParam().target + ": " + GetParam().reason + "\n");
    EXPECT_EQ(tool.files(), QStringList("a.eml"));
}

INSTANTIATE_TEST_SUITE_P(
    Tool, BadTarget,
    testing::Values(BadTargetRow{"Folder", ".", "is a folder, not a file"},
                    BadTargetRow{"MissingFolder", "no/such/file", "No such file or directory"},
                    BadTargetRow{"FileAsFolder", "a.eml/b", "Not a directory"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Reassemble, ReadOnlyFileIsRead)
{
    const ToolRunner tool;
    QFile::setPermissions(tool.write("a.eml", kMail), QFile::ReadOwner);
    EXPECT_EQ(tool.run({"reassemble", "a.eml"}).out, kAssembled);
}

TEST(Reassemble, FileThatFillsItsPages)
{
    const ToolRunner tool;
    const QByteArray header = "From: a@b.example\r\n\r\n";
    const QByteArray mail = header + QByteArray(65536 - header.size(), 'x');
    tool.write("a.eml", mail);
    EXPECT_EQ(tool.run({"reassemble", "a.eml"}).out, mail);
}

} // namespace reassemble_test
