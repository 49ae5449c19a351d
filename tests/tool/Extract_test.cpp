// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <QDir>
#include <QFileInfo>
#include <csignal>
#include <gtest/gtest.h>

namespace extract_test {

namespace {

QByteArray part(const QByteArray& header, const QByteArray& body)
{
    return "--b\r\n" + header + "\r\n\r\n" + body + "\r\n";
}

QByteArray mail(const QByteArray& parts)
{
    return "Subject: s\r\nContent-Type: multipart/mixed; boundary=b\r\n\r\n" + parts + "--b--\r\n";
}

QByteArray attachment(const QByteArray& name, const QByteArray& body)
{
    return part("Content-Type: application/octet-stream\r\n"
                "Content-Disposition: attachment; filename=" +
                    name,
                body);
}

const QByteArray kText = part("Content-Type: text/plain", "hello");
const QByteArray kImage = part("Content-Type: image/png; name=x.png\r\n"
                               "Content-Transfer-Encoding: base64",
                               "YWJj\r\nZGVm");
const QByteArray kQuoted = part("Content-Type: text/html\r\n"
                                "Content-Transfer-Encoding: quoted-printable\r\n"
                                "Content-Disposition: attachment; filename=q.html",
                                "a=3Db=\r\nc");
const QByteArray kEnclosed = part("Content-Type: message/rfc822",
                                  "Subject: inner\r\n"
                                  "Content-Type: application/x-data; name=inner.bin\r\n\r\ninner");

} // namespace

TEST(Extract, WritesTheAttachments)
{
    const ToolRunner tool;
    tool.write("a.eml", mail(kText + kImage + kQuoted));
    const ToolResult result = tool.run({"extract", "a.eml", "--out", "out"});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(result.out, "1.2  out/x.png\n1.3  out/q.html\n");
    EXPECT_EQ(tool.files(), QStringList({"a.eml", "out", "out/q.html", "out/x.png"}));
    EXPECT_EQ(tool.read("out/x.png"), "abcdef");
    EXPECT_EQ(tool.read("out/q.html"), "a=bc");
}

TEST(Extract, WritesEveryPart)
{
    const ToolRunner tool;
    tool.write("a.eml", mail(kText + kImage));
    EXPECT_EQ(tool.run({"extract", "a.eml", "--all", "--out", "out"}).status, 0);
    EXPECT_EQ(tool.read("out/part-1.1.txt"), "hello");
    EXPECT_EQ(tool.read("out/x.png"), "abcdef");
}

TEST(Extract, WritesOnePart)
{
    const ToolRunner tool;
    tool.write("a.eml", mail(kText + kImage));
    EXPECT_EQ(tool.run({"extract", "a.eml", "--part", "1.1"}).status, 0);
    EXPECT_EQ(tool.files(), QStringList({"a.eml", "part-1.1.txt"}));
}

TEST(Extract, WritesAnEnclosedMessageWhole)
{
    const ToolRunner tool;
    tool.write("a.eml", mail(kEnclosed));
    EXPECT_EQ(tool.run({"extract", "a.eml", "--all", "--out", "out"}).status, 0);
    EXPECT_EQ(tool.files(), QStringList({"a.eml", "out", "out/part-1.1.eml"}));
    EXPECT_TRUE(tool.read("out/part-1.1.eml").startsWith("Subject: inner\r\n"));
    EXPECT_EQ(tool.run({"extract", "a.eml", "--part", "1.1.1", "--out", "out"}).status, 0);
    EXPECT_EQ(tool.read("out/inner.bin"), "inner");
}

TEST(Extract, WritesTheBodyOfAMessageWithoutParts)
{
    const ToolRunner tool;
    tool.write("a.eml", "Content-Type: application/pdf; name=a.pdf\n\n%PDF");
    EXPECT_EQ(tool.run({"extract", "a.eml", "--out", "out"}).status, 0);
    EXPECT_EQ(tool.read("out/a.pdf"), "%PDF");
}

TEST(Extract, ReadsReadOnlyFiles)
{
    const ToolRunner tool;
    QFile::setPermissions(tool.write("a.eml", mail(kImage)), QFile::ReadOwner);
    EXPECT_EQ(tool.run({"extract", "a.eml", "--out", "out"}).status, 0);
    EXPECT_EQ(tool.read("out/x.png"), "abcdef");
}

struct BadPartRow
{
    const char* name;
    const char* number;
    const char* reason;
};

class BadPart : public testing::TestWithParam<BadPartRow>
{
};

TEST_P(BadPart, IsAnErrorLine)
{
    const ToolRunner tool;
    const QByteArray left = part("Content-Type: image/png\r\nX-QRN-AS-Attn-Undownload: 1", "-");
    tool.write("a.eml", mail(kText + left));
    const ToolResult result = tool.run({"extract", "a.eml", "--part", GetParam().number});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, QByteArray("tarvomime: a.eml: ") + GetParam().reason + '\n');
    EXPECT_EQ(tool.files(), QStringList("a.eml"));
}

INSTANTIATE_TEST_SUITE_P(
    Tool, BadPart,
    testing::Values(BadPartRow{"Absent", "1.9", "has no part numbered 1.9"},
                    BadPartRow{"NoNumber", "x", "has no part numbered x"},
                    BadPartRow{"Zero", "0", "has no part numbered 0"},
                    BadPartRow{"Huge", "1.99999999999", "has no part numbered 1.99999999999"},
                    BadPartRow{"EmptyPlace", "1..1", "has no part numbered 1..1"},
                    BadPartRow{"Container", "1", "part 1 holds parts, no bytes of its own"},
                    BadPartRow{"LeftOnTheServer", "1.2",
                               "the part numbered 1.2 was left on the server"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Extract, NeverOverwrites)
{
    const ToolRunner tool;
    tool.write("a.eml", mail(attachment("a.txt", "1") + attachment("a.txt", "2")));
    QDir(tool.path("")).mkdir("out");
    tool.write("out/a.txt", "mine");
    tool.write("victim", "mine");
    QFile::link("../victim", tool.path("out/a (2).txt"));
    QFile::link("../nowhere", tool.path("out/a (3).txt"));
    const ToolResult result = tool.run({"extract", "a.eml", "--out", "out"});
    EXPECT_EQ(result.out, "1.1  out/a (4).txt\n1.2  out/a (5).txt\n");
    EXPECT_EQ(tool.read("out/a.txt"), "mine");
    EXPECT_EQ(tool.read("victim"), "mine");
    EXPECT_FALSE(QFileInfo::exists(tool.path("nowhere")));
    EXPECT_EQ(tool.read("out/a (4).txt"), "1");
    EXPECT_EQ(tool.read("out/a (5).txt"), "2");
}

TEST(Extract, FloodOfEqualNamesIsWritten)
{
    const ToolRunner tool;
    tool.write("a.eml", mail(attachment("a", "x").repeated(1000)));
    EXPECT_EQ(tool.run({"extract", "a.eml", "--out", "out"}).status, 0);
    EXPECT_EQ(QDir(tool.path("out")).entryList(QDir::Files).size(), 1000);
}

struct HostileNameRow
{
    const char* name;
    QByteArray fileName;
    const char* written;
};

class HostileName : public testing::TestWithParam<HostileNameRow>
{
};

TEST_P(HostileName, StaysInTheFolder)
{
    const ToolRunner tool;
    tool.write("a.eml", mail(attachment(GetParam().fileName, "x")));
    const ToolResult result = tool.run({"extract", "a.eml", "--out", "out"});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(tool.files(), QStringList({"a.eml", "out", QString("out/") + GetParam().written}));
    EXPECT_FALSE(result.out.contains('\x1B'));
}

INSTANTIATE_TEST_SUITE_P(
    Tool, HostileName,
    testing::Values(
        HostileNameRow{"Upwards", "\"../../../../tmp/evil\"", "evil"},
        HostileNameRow{"Absolute", "\"/etc/cron.d/evil\"", "evil"},
        HostileNameRow{"Backslashes", "\"..\\\\..\\\\evil.exe\"", "evil.exe"},
        HostileNameRow{"EncodedUpwards", "\"=?utf-8?Q?=2E=2E=2Fevil?=\"", "evil"},
        HostileNameRow{"EncodedNul", "\"=?utf-8?Q?evil=00.txt?=\"", "evil.txt"},
        HostileNameRow{"EncodedNewline", "\"=?utf-8?Q?evil=0D=0A.txt?=\"", "evil.txt"},
        HostileNameRow{"EncodedEscape", "\"=?utf-8?Q?evil=1B[2J?=\"", "evil[2J"},
        HostileNameRow{"EncodedOverride", "\"=?utf-8?Q?a=E2=80=AEtxt.exe?=\"", "atxt.exe"},
        HostileNameRow{"PercentUpwards", "x; filename*=utf-8''..%2F..%2Fevil", "evil"},
        HostileNameRow{"DotDot", "\"..\"", "part-1.1"}, HostileNameRow{"Dot", ".", "part-1.1"},
        HostileNameRow{"Empty", "\"\"", "part-1.1"},
        HostileNameRow{"Device", "NUL.txt", "_NUL.txt"},
        HostileNameRow{"Hidden", ".profile", "_profile"}, HostileNameRow{"Option", "-o", "_o"},
        HostileNameRow{
            "Long", QByteArray(5000, 'a') + ".txt",
            "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"
            "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"
            "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa.txt"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Extract, BadTargetIsAnErrorLine)
{
    const ToolRunner tool;
    tool.write("a.eml", mail(kImage));
    const ToolResult file = tool.run({"extract", "a.eml", "--out", "a.eml"});
    EXPECT_EQ(file.status, 1);
    EXPECT_EQ(file.err, "tarvomime: a.eml: Not a directory\n");
    const ToolResult deep = tool.run({"extract", "a.eml", "--out", "no/such"});
    EXPECT_EQ(deep.status, 1);
    EXPECT_EQ(deep.err, "tarvomime: no/such: No such file or directory\n");
}

TEST(Extract, GoesOnWithTheOtherFiles)
{
    const ToolRunner tool;
    tool.write("a.eml", mail(kImage));
    const ToolResult result = tool.run({"extract", "missing", "a.eml", "--out", "out"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(tool.read("out/x.png"), "abcdef");
}

TEST(Extract, InterruptRemovesTheHalfWrittenFile)
{
    const ToolRunner tool;
    QFile large(tool.write("a.eml", "Content-Type: application/x-zero; name=z\r\n\r\nx"));
    ASSERT_TRUE(large.resize((qint64(1) << 31) - 100));
    const auto process = tool.start({"extract", "a.eml", "--out", "out"});
    // Its folder comes first; by then it handles Ctrl-C.
    ASSERT_TRUE(tool.waitForFiles(*process, 2));
    kill(static_cast<pid_t>(process->processId()), SIGINT);
    const ToolResult result = ToolRunner::finish(*process);
    EXPECT_EQ(result.status, 130) << testing::PrintToString(result);
    EXPECT_FALSE(tool.files().contains("out/z"));
}

} // namespace extract_test
