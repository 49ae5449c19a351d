// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace reply_test {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

const QByteArray kLetter =
    "From: \"M\xC3\xBCller, J\" <j@a.example>\r\nTo: Me <me@b.example>, k@c.example\r\n"
    "Cc: me@home.example, l@c.example\r\nDate: Mon, 3 Jun 2024 10:15:00 +0200\r\n"
    "Subject: AW: Hello\r\nMessage-ID: <2@a.example>\r\nReferences: <1@a.example>\r\n"
    "List-Post: <mailto:list@c.example>\r\nMIME-Version: 1.0\r\n"
    "Content-Type: multipart/mixed; boundary=b\r\n\r\n"
    "--b\r\nContent-Type: text/plain; charset=utf-8; format=flowed\r\n\r\n"
    "Gr\xC3\xBC\xC3\x9F \r\ndich!\r\n-- \r\nJ\r\n"
    "--b\r\nContent-Type: application/pdf; name=a.pdf\r\n"
    "Content-Disposition: attachment; filename*=utf-8''%C3%A4.pdf\r\n"
    "Content-Transfer-Encoding: base64\r\n\r\nUERG\r\n"
    "--b\r\nContent-Type: message/rfc822\r\n\r\nSubject: inner\r\n\r\nx\r\n"
    "--b--\r\n";

struct PeopleRow
{
    const char* name;
    QStringList more;
    std::string to;
    // Empty for none.
    std::string cc;
};

void PrintTo(const PeopleRow& row, std::ostream* out)
{
    *out << row.name;
}

class ReplyTo : public testing::TestWithParam<PeopleRow>
{
};

std::string lineOf(const QByteArray& mail, const char* field)
{
    const QByteArray unfolded = QByteArray(mail).replace("\r\n\t", " ");
    for (const QByteArray& line : unfolded.split('\n')) {
        if (line.startsWith(QByteArray(field) + ": "))
            return line.trimmed().toStdString();
    }
    return {};
}

const std::string kWriter = "=?utf-8?Q?M=C3=BCller=2C_J?= <j@a.example>";

} // namespace

TEST_P(ReplyTo, GoesToThesePeople)
{
    const ToolRunner tool;
    tool.write("a.eml", kLetter);
    const ToolResult result =
        tool.run(QStringList{"reply", "a.eml", "--from", "Me <me@b.example>"} + GetParam().more);
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(lineOf(result.out, "To"), "To: " + GetParam().to) << result.out.constData();
    EXPECT_EQ(lineOf(result.out, "Cc"), GetParam().cc.empty() ? "" : "Cc: " + GetParam().cc);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, ReplyTo,
    testing::Values(PeopleRow{"Sender", {}, kWriter, ""},
                    PeopleRow{
                        "All", {"--all"}, kWriter, "k@c.example, me@home.example, l@c.example"},
                    PeopleRow{"AllButOneself",
                              {"--all", "--own", "ME@home.example"},
                              kWriter,
                              "k@c.example, l@c.example"},
                    PeopleRow{"List", {"--list"}, "list@c.example", ""},
                    PeopleRow{"FurtherReader", {"--cc", "m@d.example"}, kWriter, "m@d.example"},
                    PeopleRow{"AllAndFurtherReader",
                              {"--all", "--own", "me@home.example", "--cc", "m@d.example"},
                              kWriter,
                              "k@c.example, l@c.example, m@d.example"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Reply, IsTiedToTheOriginalAndQuotesIt)
{
    const ToolRunner tool;
    tool.write("a.eml", kLetter);
    tool.write("x.bin", "x");
    const ToolResult result = tool.run({"reply", "a.eml", "--from", "me@b.example", "--text", "-",
                                        "--attach", "x.bin", "--out", "r.eml"},
                                       "Schön.\n");
    ASSERT_EQ(result.status, 0) << testing::PrintToString(result);
    const QByteArray mail = tool.read("r.eml");
    EXPECT_EQ(lineOf(mail, "Subject"), "Subject: Re: Hello");
    EXPECT_EQ(lineOf(mail, "In-Reply-To"), "In-Reply-To: <2@a.example>");
    EXPECT_EQ(lineOf(mail, "References"), "References: <1@a.example> <2@a.example>");
    EXPECT_THAT(lineOf(mail, "Message-ID"), testing::MatchesRegex("Message-ID: <.+@b.example>"));
    EXPECT_EQ(tool.run({"text", "r.eml"}).out,
              "Schön.\n\n"
              "On Mon, 3 Jun 2024 10:15:00 +0200, Müller, J wrote:\n"
              "> Grüß dich!\n");
    EXPECT_EQ(tool.run({"extract", "r.eml"}).status, 0);
    EXPECT_EQ(tool.read("x.bin"), "x");
    EXPECT_EQ(tool.run({"lint", "r.eml"}).out, "");
}

TEST(Reply, QuotesNothingOnRequest)
{
    const ToolRunner tool;
    tool.write("a.eml", kLetter);
    const ToolResult result =
        tool.run({"reply", "a.eml", "--from", "me@b.example", "--no-quote", "--text", "No."});
    EXPECT_THAT(result.out.toStdString(),
                AllOf(HasSubstr("\r\n\r\nNo."), Not(HasSubstr("wrote:"))));
}

TEST(Reply, QuotesTheTextOfHtml)
{
    const ToolRunner tool;
    tool.write("a.eml", "From: a@b.example\r\nContent-Type: text/html\r\n\r\n<p>One<p>Two\r\n");
    const ToolResult result = tool.run({"reply", "a.eml", "--from", "me@b.example"});
    EXPECT_THAT(result.out.toStdString(),
                HasSubstr("\r\n\r\na@b.example wrote:\r\n> One\r\n>\r\n> Two\r\n"));
}

TEST(Reply, NamesTheWriterInOneLine)
{
    const ToolRunner tool;
    tool.write("a.eml",
               "From: =?utf-8?Q?a=0D=0ABcc:_x@y.z=0D=0A=0D=0Ab=1B?= <a@b.example>\r\n\r\nHi\r\n");
    const ToolResult result = tool.run({"reply", "a.eml", "--from", "me@b.example"});
    EXPECT_THAT(result.out.toStdString(), HasSubstr("\r\n\r\na Bcc: x@y.z b wrote:\r\n> Hi\r\n"));
}

TEST(Reply, NeedsSomebodyToAnswer)
{
    const ToolRunner tool;
    tool.write("a.eml", "Subject: x\r\n\r\nbody");
    const ToolResult result = tool.run({"reply", "a.eml", "--from", "me@b.example"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "tarvomime: a.eml: names nobody who could be answered\n");
    EXPECT_EQ(tool.run({"reply", "a.eml", "--from", "me@b.example", "--cc", "k@c.example"}).status,
              0);
}

TEST(Reply, IsForAllOrForTheList)
{
    const ToolRunner tool;
    tool.write("a.eml", kLetter);
    const ToolResult result =
        tool.run({"reply", "a.eml", "--from", "me@b.example", "--all", "--list"});
    EXPECT_EQ(result.status, 2) << testing::PrintToString(result);
}

TEST(Forward, CarriesTextAndAttachments)
{
    const ToolRunner tool;
    tool.write("a.eml", kLetter);
    tool.write("new.bin", "new");
    for (const bool readOnly : {false, true}) {
        if (readOnly)
            QFile::setPermissions(tool.path("a.eml"), QFile::ReadOwner);
        const ToolResult result =
            tool.run({"forward", "a.eml", "--from", "me@b.example", "--to", "x@y.example", "--text",
                      "FYI", "--attach", "new.bin", "--out", "f.eml"});
        ASSERT_EQ(result.status, 0) << testing::PrintToString(result);
        EXPECT_EQ(lineOf(tool.read("f.eml"), "Subject"), "Subject: Fwd: AW: Hello");
        EXPECT_EQ(lineOf(tool.read("f.eml"), "To"), "To: x@y.example");
        EXPECT_EQ(tool.run({"text", "f.eml"}).out,
                  "FYI\n\n---------- Forwarded message ----------\n"
                  "From: \"Müller, J\" <j@a.example>\n"
                  "To: Me <me@b.example>, k@c.example\nCc: me@home.example, l@c.example\n"
                  "Date: Mon, 3 Jun 2024 10:15:00 +0200\nSubject: AW: Hello\n\n"
                  "Grüß dich!\n-- \nJ\n");
        const QString out = readOnly ? "out2" : "out";
        const ToolResult extracted = tool.run({"extract", "f.eml", "--out", out});
        EXPECT_EQ(extracted.out.count('\n'), 3) << testing::PrintToString(extracted);
        EXPECT_EQ(tool.read(out + "/ä.pdf"), "PDF");
        EXPECT_EQ(tool.read(out + "/new.bin"), "new");
        EXPECT_EQ(tool.run({"lint", "f.eml"}).out, "");
    }
}

TEST(Forward, AttachesTheMessageAsItIs)
{
    const ToolRunner tool;
    tool.write("a.eml", kLetter);
    const ToolResult result =
        tool.run({"forward", "a.eml", "--attached", "--from", "me@b.example", "--bcc",
                  "x@y.example", "--subject", "See", "--out", "f.eml"});
    ASSERT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(lineOf(tool.read("f.eml"), "Subject"), "Subject: See");
    EXPECT_TRUE(tool.read("f.eml").contains(kLetter.trimmed()));
    EXPECT_EQ(tool.run({"extract", "f.eml", "--part=1.2", "--out", "out"}).status, 0);
    EXPECT_EQ(tool.read("out/AW_ Hello.eml").trimmed(), kLetter.trimmed());
}

} // namespace reply_test
