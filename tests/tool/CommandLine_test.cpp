// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace command_line_test {

using testing::HasSubstr;

namespace {

const QByteArray kMail = "Subject: Hi\r\nTo: a@b.example\r\n\r\ntext\r\n";

} // namespace

TEST(CommandLine, VersionAndHelpGoToStandardOutput)
{
    const ToolRunner tool;
    const ToolResult version = tool.run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_THAT(version.out.toStdString(), testing::MatchesRegex("tarvomime [0-9]+\\.[0-9.]+\n"));
    const ToolResult help = tool.run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.out.toStdString(), HasSubstr("Exit status"));
    EXPECT_EQ(help.err, "");
}

class EveryCommand : public testing::TestWithParam<const char*>
{
protected:
    QStringList command() const { return QString(GetParam()).split(' '); }
    ToolRunner tool;
};

TEST_P(EveryCommand, HelpShowsAnExample)
{
    const ToolResult help = tool.run(command() << "--help");
    EXPECT_EQ(help.status, 0) << testing::PrintToString(help);
    EXPECT_THAT(help.out.toStdString(), HasSubstr("Example:\n  tarvomime "));
    EXPECT_EQ(help.err, "");
}

TEST_P(EveryCommand, HasAVersion)
{
    const ToolResult version = tool.run(command() << "--version");
    EXPECT_EQ(version.status, 0) << testing::PrintToString(version);
    EXPECT_THAT(version.out.toStdString(), testing::StartsWith("tarvomime "));
}

TEST_P(EveryCommand, RefusesAnUnknownOption)
{
    const ToolResult result = tool.run(command() << "--no-such-option");
    EXPECT_EQ(result.status, 2) << testing::PrintToString(result);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err.toStdString(), testing::StartsWith("tarvomime: "));
}

INSTANTIATE_TEST_SUITE_P(Tool, EveryCommand,
                         testing::Values("headers", "reassemble", "encode", "decode", "words",
                                         "words decode", "words encode", "tree", "show", "text",
                                         "calendar", "list", "extract", "compose", "diff", "reply",
                                         "forward", "invite", "sendable", "lint"),
                         [](const auto& row) {
                             return QString(row.param).replace(' ', '_').toStdString();
                         });

struct WrongUsageRow
{
    const char* name;
    QStringList arguments;
};

class WrongUsage : public testing::TestWithParam<WrongUsageRow>
{
};

TEST_P(WrongUsage, GivesTwo)
{
    const ToolRunner tool;
    const ToolResult result = tool.run(GetParam().arguments);
    EXPECT_EQ(result.status, 2) << testing::PrintToString(result);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err.toStdString(), testing::StartsWith("tarvomime: "));
}

INSTANTIATE_TEST_SUITE_P(
    Tool, WrongUsage,
    testing::Values(WrongUsageRow{"NoCommand", {}}, WrongUsageRow{"UnknownCommand", {"frobnicate"}},
                    WrongUsageRow{"NoFile", {"headers"}},
                    WrongUsageRow{"TwoFilesWhereOneIsMeant", {"reassemble", "a", "b"}},
                    WrongUsageRow{"RawAndUnfold", {"headers", "--raw", "--unfold", "a"}},
                    WrongUsageRow{"UnknownEncoding", {"encode", "rot13"}},
                    WrongUsageRow{"NoText", {"words", "decode"}},
                    WrongUsageRow{"NoDirection", {"words"}},
                    WrongUsageRow{"UnknownCharset", {"words", "decode", "a", "--charset", "nope"}},
                    WrongUsageRow{"OutWithoutName", {"reassemble", "a", "--out"}}),
    [](const auto& row) { return std::string(row.param.name); });

struct BadFileRow
{
    const char* name;
    const char* file;
    const char* reason;
};

class BadFile : public testing::TestWithParam<BadFileRow>
{
protected:
    BadFile()
    {
        tool.write("good.eml", kMail);
        tool.write("empty.eml", "");
        mkfifo(tool.path("fifo").toLocal8Bit().constData(), 0600);
    }

    std::string errorLine() const
    {
        return std::string("tarvomime: ") + GetParam().file + ": " + GetParam().reason + "\n";
    }
    ToolRunner tool;
};

TEST_P(BadFile, IsOneLineAndTheOthersGoOn)
{
    const ToolResult result = tool.run({"headers", "--raw", GetParam().file, "good.eml"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err.toStdString(), errorLine());
    EXPECT_EQ(result.out, "Subject: Hi\r\nTo: a@b.example\r\n");
}

TEST_P(BadFile, FailsWhereOneFileIsMeant)
{
    const ToolResult result = tool.run({"reassemble", GetParam().file, "--out", "out.eml"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err.toStdString(), errorLine());
    EXPECT_FALSE(tool.files().contains("out.eml"));
}

INSTANTIATE_TEST_SUITE_P(
    Tool, BadFile,
    testing::Values(BadFileRow{"Missing", "missing.eml", "No such file or directory"},
                    BadFileRow{"Empty", "empty.eml", "is empty"},
                    BadFileRow{"Fifo", "fifo", "is not a regular file"},
                    BadFileRow{"Device", "/dev/zero", "is not a regular file"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CommandLine, FileOfTwoGibibytesIsRefused)
{
    const ToolRunner tool;
    QFile large(tool.write("large.eml", kMail));
    ASSERT_TRUE(large.resize(qint64(1) << 31));
    const ToolResult result = tool.run({"headers", "large.eml"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tarvomime: large.eml: is too large (2 GiB or more)\n");
}

TEST(CommandLine, FullStandardOutputIsAnError)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    for (const QStringList& arguments :
         {QStringList{"headers", "a.eml"}, QStringList{"reassemble", "a.eml"},
          QStringList{"encode", "base64", "a.eml"}, QStringList{"words", "encode", "a"},
          QStringList{"tree", "a.eml"}, QStringList{"--help"}, QStringList{"--version"}}) {
        const ToolResult result = tool.runInto("/dev/full", arguments);
        EXPECT_EQ(result.status, 1) << arguments.join(' ').toStdString();
        EXPECT_EQ(result.err, "tarvomime: standard output: No space left on device\n")
            << arguments.join(' ').toStdString();
    }
}

TEST(CommandLine, ClosedStandardOutputIsAnErrorAndSparesTheInput)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    QProcess shell;
    shell.setWorkingDirectory(tool.path(""));
    shell.start("/bin/sh", {"-c", "exec \"$0\" reassemble a.eml >&-", TARVOMIME_TOOL});
    const ToolResult result = ToolRunner::finish(shell);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tarvomime: standard output: Bad file descriptor\n");
    EXPECT_EQ(tool.read("a.eml"), kMail);
}

TEST(CommandLine, NamesInBracketsAreNames)
{
    const ToolRunner tool;
    tool.write("[a,b]", kMail);
    const ToolResult result = tool.run({"headers", "[a,b]", "[a,b]"});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(result.out.count("==> [a,b] <=="), 2);
    EXPECT_EQ(tool.run({"words", "encode", "[a,b]"}).out, "[a,b]\n");
}

TEST(CommandLine, FileNamesAreMadeHarmless)
{
    const ToolRunner tool;
    const ToolResult result = tool.run({"headers", "evil\x1B[2J\n.eml"});
    EXPECT_EQ(result.err, "tarvomime: evil\\x1B[2J\\n.eml: No such file or directory\n");
}

} // namespace command_line_test
