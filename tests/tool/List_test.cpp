// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace list_test {

namespace {

QByteArray mail(const QByteArray& subject)
{
    return "From: =?utf-8?Q?J=C3=B6rn?= <j@b.example>\r\nTo: a@b.example\r\nSubject: " + subject +
           "\r\nDate: Mon, 3 Jun 2024 10:15:00 +0000\r\n\r\ntext\r\n";
}

const QByteArray kTwoAttachments =
    "Subject: two\r\nContent-Type: multipart/mixed; boundary=b\r\n\r\n"
    "--b\r\nContent-Type: text/plain\r\n\r\nt\r\n"
    "--b\r\nContent-Type: image/png\r\nX-QRN-AS-Attn-Undownload: 1\r\n\r\nx\r\n"
    "--b\r\nContent-Type: image/png\r\n\r\nx\r\n"
    "--b--\r\n";

QStringList subjects(const ToolResult& result)
{
    QStringList found;
    for (const QByteArray& line : result.out.split('\n')) {
        if (!line.isEmpty())
            found += QJsonDocument::fromJson(line).object().value("subject").toString();
    }
    return found;
}

} // namespace

TEST(List, PrintsALineAMessage)
{
    const ToolRunner tool;
    tool.write("a.eml", mail("=?utf-8?Q?Gr=C3=BC=C3=9Fe?="));
    tool.write("b.eml", kTwoAttachments);
    const ToolResult result = tool.run({"list", "a.eml", "b.eml"});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(result.out, "2024-06-03 10:15  Jörn <j@b.example>                     Grüße\n"
                          "                                                  @2!    two\n");
}

TEST(List, PrintsJson)
{
    const ToolRunner tool;
    tool.write("a.eml", mail("Hi"));
    tool.write("b.eml", kTwoAttachments);
    const QList<QByteArray> lines = tool.run({"list", "--json", "a.eml", "b.eml"}).out.split('\n');
    ASSERT_EQ(lines.size(), 3);
    const QJsonObject plain = QJsonDocument::fromJson(lines[0]).object();
    EXPECT_EQ(plain.value("file").toString(), "a.eml");
    EXPECT_EQ(plain.value("date").toString(), "2024-06-03T10:15:00Z");
    EXPECT_EQ(plain.value("displayDate").toString(), "10:15 am 06/03");
    EXPECT_EQ(plain.value("from").toString(), QString("Jörn <j@b.example>"));
    EXPECT_EQ(plain.value("to").toString(), "a@b.example");
    EXPECT_EQ(plain.value("subject").toString(), "Hi");
    EXPECT_EQ(plain.value("hasAttachment"), QJsonValue(false));
    EXPECT_EQ(plain.value("complete"), QJsonValue(true));
    EXPECT_FALSE(plain.contains("offset"));
    const QJsonObject mixed = QJsonDocument::fromJson(lines[1]).object();
    EXPECT_EQ(mixed.value("attachments").toInt(), 2);
    EXPECT_EQ(mixed.value("hasAttachment"), QJsonValue(true));
    EXPECT_EQ(mixed.value("complete"), QJsonValue(false));
    EXPECT_FALSE(mixed.contains("date"));
}

TEST(List, ReadsMboxes)
{
    const ToolRunner tool;
    const QByteArray from = "From a@b Mon Jun  3 10:15:00 2024\n";
    tool.write("mbox", from + mail("one") + '\n' + from + mail("two") + '\n');
    const ToolResult result = tool.run({"list", "--json", "mbox"});
    EXPECT_EQ(subjects(result), QStringList({"one", "two"}));
    const QJsonObject second = QJsonDocument::fromJson(result.out.split('\n')[1]).object();
    EXPECT_EQ(second.value("message").toInt(), 2);
    EXPECT_EQ(second.value("offset").toInt(), 2 * from.size() + mail("one").size() + 1);
    EXPECT_EQ(second.value("size").toInt(), mail("two").size());
}

TEST(List, ReadsMaildirsAndTheirSubfolders)
{
    const ToolRunner tool;
    for (const char* folder : {"M/cur", "M/new", "M/tmp", "M/.Sent/cur", "M/.Sent/new", "M/notes"})
        QDir(tool.path("")).mkpath(folder);
    tool.write("M/cur/1.a:2,S", mail("read"));
    tool.write("M/new/2", mail("new"));
    tool.write("M/tmp/3", mail("not there yet"));
    tool.write("M/.Sent/cur/4", mail("sent"));
    tool.write("M/dovecot-uidlist", "3 V1");
    tool.write("M/notes/5", mail("no mail"));
    EXPECT_EQ(subjects(tool.run({"list", "--json", "M"})), QStringList({"read", "new", "sent"}));
}

TEST(List, ReadsFoldersButFollowsNoLoop)
{
    const ToolRunner tool;
    QDir(tool.path("")).mkpath("mail/deep/deeper");
    tool.write("mail/b.eml", mail("b"));
    tool.write("mail/a.eml", mail("a"));
    tool.write("mail/.hidden", mail("hidden"));
    tool.write("mail/deep/deeper/c.eml", mail("c"));
    QFile::link("..", tool.path("mail/deep/loop"));
    QFile::link("a.eml", tool.path("mail/link.eml"));
    EXPECT_EQ(subjects(tool.run({"list", "--json", "mail"})), QStringList({"a", "b", "c", "a"}));
}

TEST(List, BadPathsAreErrorLinesAndTheOthersGoOn)
{
    const ToolRunner tool;
    QDir(tool.path("")).mkdir("mail");
    tool.write("mail/a.eml", mail("a"));
    tool.write("mail/empty.eml", "");
    const ToolResult result = tool.run({"list", "--json", "missing", "mail"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tarvomime: missing: No such file or directory\n"
                          "tarvomime: mail/empty.eml: is empty\n");
    EXPECT_EQ(subjects(result), QStringList("a"));
}

TEST(List, EmptyFolderIsNoError)
{
    const ToolRunner tool;
    QDir(tool.path("")).mkdir("mail");
    const ToolResult result = tool.run({"list", "mail"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
}

TEST(List, ControlCharactersStayInTheirLine)
{
    const ToolRunner tool;
    tool.write("a.eml", mail("=?utf-8?Q?a=0D=0Ab=1B[2J?="));
    const ToolResult result = tool.run({"list", "a.eml"});
    EXPECT_EQ(result.out.count('\n'), 1);
    EXPECT_FALSE(result.out.contains('\x1B'));
}

} // namespace list_test
