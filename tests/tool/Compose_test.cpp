// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace compose_test {

using testing::HasSubstr;
using testing::Not;

namespace {

const QStringList kEnvelope = {"--from", "Mira <m@a.example>", "--to", "j@b.example"};

QByteArray everyByte()
{
    QByteArray bytes;
    for (int i = 0; i < 70000; ++i)
        bytes += char(i % 256);
    return bytes;
}

} // namespace

TEST(Compose, WritesAPlainMessage)
{
    const ToolRunner tool;
    const ToolResult result =
        tool.run(QStringList("compose") + kEnvelope +
                 QStringList{"--to", "k@b.example", "--cc", "c@b.example", "--subject", "Grüße",
                             "--text", "one\ntwo", "--receipt"});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    const std::string mail = result.out.toStdString();
    EXPECT_THAT(mail, HasSubstr("From: Mira <m@a.example>\r\n"));
    EXPECT_THAT(mail, HasSubstr("To: j@b.example,\r\n\tk@b.example\r\n"));
    EXPECT_THAT(mail, HasSubstr("Cc: c@b.example\r\n"));
    EXPECT_THAT(mail, HasSubstr("Subject: =?utf-8?b?R3LDvMOfZQ==?=\r\n"));
    EXPECT_THAT(mail, HasSubstr("Date: "));
    EXPECT_THAT(mail, HasSubstr("Mime-Version: 1.0\r\n"));
    EXPECT_THAT(mail, HasSubstr("Disposition-Notification-To: m@a.example\r\n"));
    EXPECT_THAT(mail, HasSubstr("\r\n\r\none\r\ntwo"));
}

TEST(Compose, TextComesBackAsItWasGiven)
{
    const ToolRunner tool;
    const QByteArray text = "Grüße aus Köln 😀\nzweite Zeile = 2\n";
    for (const QStringList& more : {QStringList(), QStringList({"--attach", "x"}),
                                    QStringList({"--charset", "iso-8859-1"})}) {
        tool.write("x", "y");
        const ToolResult result = tool.run(QStringList("compose") + kEnvelope +
                                               QStringList{"--text", "-", "--out", "a.eml"} + more,
                                           text);
        EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
        EXPECT_EQ(tool.run({"text", "a.eml"}).out, text) << more.join(' ').toStdString();
    }
}

TEST(Compose, AttachmentsComeBackByteForByte)
{
    const ToolRunner tool;
    tool.write("bytes.bin", everyByte());
    tool.write("Grüße \"x\".txt", "zw\xC3\xB6lf\n");
    tool.write("empty.pdf", "");
    QFile::setPermissions(tool.write("readonly.bin", everyByte()), QFile::ReadOwner);
    tool.write("inner.eml", "Subject: inner\r\n\r\nbody");
    ASSERT_EQ(tool.run(QStringList("compose") + kEnvelope +
                       QStringList{"--text", "hi", "--out", "a.eml", "--attach", "bytes.bin",
                                   "Grüße \"x\".txt", "empty.pdf", "readonly.bin", "inner.eml"})
                  .status,
              0);
    const ToolResult result = tool.run({"extract", "a.eml", "--out", "out"});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(tool.read("out/bytes.bin"), everyByte());
    EXPECT_EQ(tool.read("out/Grüße 'x'.txt"), "zw\xC3\xB6lf\n");
    EXPECT_EQ(tool.read("out/readonly.bin"), everyByte());
    EXPECT_EQ(tool.read("out/inner.eml"), "Subject: inner\r\n\r\nbody");
    EXPECT_EQ(tool.read("out/empty.pdf"), "");
    EXPECT_EQ(tool.run({"lint", "a.eml"}).out, "");
}

namespace {

// What another program that starts at `second` draws first.
QByteArray boundaryDrawnAt(unsigned int second)
{
    QByteArray boundary(12, '-');
    std::srand(second + 1);
    for (int i = 0; i < 24; ++i)
        boundary += "0123456789ABCDEF"[std::rand() % 16];
    return boundary;
}

} // namespace

// Two messages of one second have the same boundary: the second, with the first attached, would
// lose what follows it.
TEST(Compose, BoundaryIsNotThatOfAnAttachedMessage)
{
    const ToolRunner tool;
    const auto now = static_cast<unsigned int>(std::time(nullptr));
    QByteArray attached = "Subject: other\n\n";
    for (unsigned int second = now; second < now + 300; ++second)
        attached += "--" + boundaryDrawnAt(second) + "--\n";
    tool.write("other.eml", attached);
    tool.write("last.bin", "last");
    ASSERT_EQ(
        tool.run(QStringList("compose") + kEnvelope +
                 QStringList{"--text", "x", "--attach", "other.eml", "last.bin", "--out", "a.eml"})
            .status,
        0);
    const ToolResult result = tool.run({"extract", "a.eml", "--all", "--out", "parts"});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(tool.read("parts/last.bin"), "last") << tool.read("a.eml").toStdString();
}

TEST(Compose, MissingAttachmentLeavesNoMessage)
{
    const ToolRunner tool;
    const ToolResult result = tool.run(QStringList("compose") + kEnvelope +
                                       QStringList{"--attach", "missing", "--out", "a.eml"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tarvomime: missing: No such file or directory\n");
    EXPECT_EQ(tool.files(), QStringList());
}

struct WrongValueRow
{
    const char* name;
    QStringList arguments;
    std::string problem;
};

class WrongValue : public testing::TestWithParam<WrongValueRow>
{
};

TEST_P(WrongValue, IsRefusedWithTheReason)
{
    const ToolRunner tool;
    const ToolResult result = tool.run(QStringList("compose") + GetParam().arguments);
    EXPECT_EQ(result.status, 2) << testing::PrintToString(result);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.toStdString(),
              "tarvomime: " + GetParam().problem + "\nTry 'tarvomime compose --help'.\n");
}

INSTANTIATE_TEST_SUITE_P(
    Tool, WrongValue,
    testing::Values(
        WrongValueRow{"Nobody", {"--from", "a@b"}, "--to, --cc or --bcc is required"},
        WrongValueRow{
            "NoAddress", {"--from", "a@b", "--to", "x"}, "--to: \"x\": the address has no \"@\""},
        WrongValueRow{"NameWithBareComma",
                      {"--from", "a@b", "--to", "Smith, John <j@c>"},
                      "--to: \"Smith\": the address has no \"@\""},
        WrongValueRow{"EmptyAddress", {"--from", "a@b", "--cc", ""}, "--cc: there is no address"},
        WrongValueRow{
            "TwoSenders", {"--from", "a@b, c@d", "--to", "e@f"}, "--from: one address is needed"},
        WrongValueRow{"OwnField",
                      {"--from", "a@b", "--to", "c@d", "--header", "subject: x"},
                      "--header: the field subject is not written by hand"},
        WrongValueRow{"FieldOfTheForm",
                      {"--from", "a@b", "--to", "c@d", "--header", "Content-Type: text/plain"},
                      "--header: the field Content-Type is not written by hand"},
        WrongValueRow{"FieldWithoutColon",
                      {"--from", "a@b", "--to", "c@d", "--header", "x"},
                      "--header: it has no colon behind the field's name"},
        WrongValueRow{"FieldWithoutValue",
                      {"--from", "a@b", "--to", "c@d", "--header", "X: "},
                      "--header: it has no value behind the colon"},
        WrongValueRow{"FieldNameWithBlank",
                      {"--from", "a@b", "--to", "c@d", "--header", "X y: z"},
                      "--header: a name is printable ASCII without blanks and colons"},
        WrongValueRow{"EndlessWord",
                      {"--from", "a@b", "--to", "c@d", "--subject", QString(1000, 'a')},
                      "--subject: a line is longer than 998 bytes"},
        WrongValueRow{"NoMessageId",
                      {"--from", "a@b", "--to", "c@d", "--message-id", "x"},
                      "--message-id: a message id looks like <unique@domain>"},
        WrongValueRow{"TwoIds",
                      {"--from", "a@b", "--to", "c@d", "--in-reply-to", "<a@b> <c@d>"},
                      "--in-reply-to: a message id looks like <unique@domain>"},
        WrongValueRow{"InlineWithoutHtml",
                      {"--from", "a@b", "--to", "c@d", "--inline", "x.png"},
                      "--inline requires --html"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Compose, WritesEveryField)
{
    const ToolRunner tool;
    const ToolResult result =
        tool.run({"compose", "--from", "\"Okafor, Mira\" <m@a.example>", "--to",
                  "\"Smith \\\"Jo\\\" (x)\" <j@b.example>, undisclosed:;", "--bcc", "s@b.example",
                  "--reply-to", "Müller <l@a.example>", "--header", "X-A: 1", "--header",
                  "x-a:  Gärten ", "--in-reply-to", "1@a.example", "--message-id", "<2@a.example>",
                  "--subject", QString("word ").repeated(300)});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    const std::string mail = result.out.toStdString();
    EXPECT_THAT(mail, HasSubstr("From: =?utf-8?Q?Okafor=2C_Mira?= <m@a.example>\r\n"));
    EXPECT_THAT(mail, HasSubstr("To: =?utf-8?B?U21pdGggIkpvIiAoeCk=?= <j@b.example>\r\n"));
    EXPECT_THAT(mail, HasSubstr("Bcc: s@b.example\r\n"));
    EXPECT_THAT(mail, HasSubstr("Reply-To: =?utf-8?Q?M=C3=BCller?= <l@a.example>\r\n"));
    EXPECT_THAT(mail, HasSubstr("X-A: 1\r\n"));
    EXPECT_THAT(mail, HasSubstr("x-a: =?utf-8?b?R8OkcnRlbg==?=\r\n"));
    EXPECT_THAT(mail, HasSubstr("In-Reply-To: <1@a.example>\r\nReferences: <1@a.example>\r\n"));
    EXPECT_THAT(mail, HasSubstr("Message-ID: <2@a.example>\r\n"));
    for (const QByteArray& line : result.out.split('\n'))
        EXPECT_LE(line.size(), 79) << line.constData();
}

TEST(Compose, MakesAnIdThatIsNew)
{
    const ToolRunner tool;
    QByteArrayList ids;
    for (int i = 0; i < 2; ++i) {
        const QByteArray mail = tool.run(QStringList("compose") + kEnvelope).out;
        const auto start = mail.indexOf("Message-ID: <");
        ids.append(mail.mid(start, mail.indexOf('\n', start) - start).trimmed());
        EXPECT_TRUE(ids.last().endsWith("@a.example>")) << mail.constData();
    }
    EXPECT_NE(ids[0], ids[1]);
}

TEST(Compose, WritesHtmlWithWhatItRefersTo)
{
    const ToolRunner tool;
    tool.write("l.html", "<h1>Gr\xC3\xBC\xC3\x9F</h1><img src='cid:my_map.png'>\n");
    tool.write("my map.png", everyByte());
    tool.write("x.bin", "x");
    const ToolResult result = tool.run(QStringList("compose") + kEnvelope +
                                       QStringList{"--html", "l.html", "--inline", "my map.png",
                                                   "--attach", "x.bin", "--out", "a.eml"});
    ASSERT_EQ(result.status, 0) << testing::PrintToString(result);
    const std::string tree = tool.run({"tree", "a.eml"}).out.toStdString();
    EXPECT_THAT(tree,
                testing::ContainsRegex("1\\.1 .*alternative(.|\n)*1\\.1\\.1 .*text/plain(.|\n)*"
                                       "1\\.1\\.2 .*related(.|\n)*1\\.1\\.2\\.1 .*text/html"
                                       "(.|\n)*1\\.1\\.2\\.2 .*image/png(.|\n)*1\\.2 .*x.bin"));
    EXPECT_EQ(tool.run({"text", "a.eml"}).out, "Grüß\n");
    EXPECT_EQ(tool.run({"extract", "a.eml", "--part=1.1.2.2", "--out", "out"}).status, 0);
    EXPECT_EQ(tool.read("out/my map.png"), everyByte());
    EXPECT_THAT(tool.read("a.eml").toStdString(), HasSubstr("Content-Id: <my_map.png>\r\n"));
}

TEST(Compose, ReadsOneTextFromStandardInput)
{
    const ToolRunner tool;
    const ToolResult html =
        tool.run(QStringList("compose") + kEnvelope + QStringList{"--html", "-"}, "<b>x</b>");
    EXPECT_THAT(html.out.toStdString(), HasSubstr("\r\n\r\n<b>x</b>"));
    const ToolResult both = tool.run(
        QStringList("compose") + kEnvelope + QStringList{"--html", "-", "--text", "-"}, "x");
    EXPECT_EQ(both.status, 2) << testing::PrintToString(both);
    EXPECT_EQ(both.out, "");
}

TEST(Compose, WritesNoLineThatIsTooLong)
{
    const ToolRunner tool;
    const QByteArray text = QByteArray("word ").repeated(300) + "\n" + QByteArray(3000, 'x') + "\n";
    const ToolResult result =
        tool.run(QStringList("compose") + kEnvelope + QStringList{"--text", "-"}, text);
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_TRUE(result.out.contains("format=flowed"));
    for (const QByteArray& line : result.out.split('\n'))
        EXPECT_LE(line.size(), 79) << line.constData();
}

struct InjectionRow
{
    const char* name;
    QStringList arguments;
};

class Injection : public testing::TestWithParam<InjectionRow>
{
};

TEST_P(Injection, IsRefused)
{
    const ToolRunner tool;
    tool.write("x.ics", "BEGIN:VCALENDAR\r\n");
    const ToolResult result = tool.run(GetParam().arguments);
    EXPECT_EQ(result.status, 2) << testing::PrintToString(result);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err.toStdString(),
                HasSubstr("line breaks and control characters do not belong into a header"));
    EXPECT_THAT(result.err.toStdString(), testing::StartsWith("tarvomime: --"));
}

INSTANTIATE_TEST_SUITE_P(
    Tool, Injection,
    testing::Values(
        InjectionRow{"From", {"compose", "--from", "a@b\r\nBcc: x@y", "--to", "c@d"}},
        InjectionRow{"To", {"compose", "--from", "a@b", "--to", "c@d\nBcc: x@y"}},
        InjectionRow{"SecondTo", {"compose", "--from", "a@b", "--to", "c@d", "--to", "e\rf"}},
        InjectionRow{"Cc", {"compose", "--from", "a@b", "--to", "c@d", "--cc", "x\r\n\r\nbody"}},
        InjectionRow{"Bcc", {"compose", "--from", "a@b", "--bcc", "c@d\nBcc: x@y"}},
        InjectionRow{"ReplyTo",
                     {"compose", "--from", "a@b", "--to", "c@d", "--reply-to", "c@d\nX: y"}},
        InjectionRow{"Header",
                     {"compose", "--from", "a@b", "--to", "c@d", "--header", "X: y\r\nBcc: x@y"}},
        InjectionRow{"Subject",
                     {"compose", "--from", "a@b", "--to", "c@d", "--subject", "x\nBcc: y"}},
        InjectionRow{"SubjectWithEscape",
                     {"compose", "--from", "a@b", "--to", "c@d", "--subject", "x\x1By"}},
        InjectionRow{"AttachmentName",
                     {"compose", "--from", "a@b", "--to", "c@d", "--attach", "x\r\nBcc: y"}},
        InjectionRow{
            "InviteSubject",
            {"invite", "--from", "a@b", "--to", "c@d", "--ics", "x.ics", "--subject", "x\ny"}},
        InjectionRow{
            "InviteMethod",
            {"invite", "--from", "a@b", "--to", "c@d", "--ics", "x.ics", "--method", "x\ny"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Invite, CarriesTextAndCalendar)
{
    const ToolRunner tool;
    const QByteArray calendar =
        "BEGIN:VCALENDAR\r\nMethod: cancel\r\nSUMMARY:Grüße\r\nEND:VCALENDAR\r\n";
    tool.write("x.ics", calendar);
    const ToolResult result =
        tool.run(QStringList("invite") + kEnvelope +
                 QStringList{"--ics", "x.ics", "--text", "Passt das?", "--out", "a.eml"});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(tool.run({"text", "a.eml"}).out, "Passt das?\n");
    EXPECT_EQ(tool.run({"calendar", "a.eml"}).out.trimmed(), calendar.trimmed());
    EXPECT_THAT(tool.read("a.eml").toStdString(), HasSubstr("method=cancel"));
    EXPECT_EQ(tool.run({"lint", "a.eml"}).out, "");
}

struct CalendarRow
{
    const char* name;
    QByteArray calendar;
    QString method;
    std::string problem;
};

void PrintTo(const CalendarRow& row, std::ostream* out)
{
    *out << row.name;
}

class WrongCalendar : public testing::TestWithParam<CalendarRow>
{
};

TEST_P(WrongCalendar, IsRefused)
{
    const ToolRunner tool;
    tool.write("x.ics", GetParam().calendar);
    QStringList arguments = QStringList("invite") + kEnvelope + QStringList{"--ics", "x.ics"};
    if (!GetParam().method.isEmpty())
        arguments += QStringList{"--method", GetParam().method};
    const ToolResult result = tool.run(arguments);
    EXPECT_EQ(result.status, GetParam().problem.empty() ? 0 : 1) << testing::PrintToString(result);
    EXPECT_EQ(result.err.toStdString(),
              GetParam().problem.empty() ? "" : "tarvomime: x.ics: " + GetParam().problem + "\n");
    EXPECT_EQ(result.out.isEmpty(), !GetParam().problem.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Tool, WrongCalendar,
    testing::Values(
        CalendarRow{"Text", "Dear John\n", "",
                    "is no calendar: it does not begin with BEGIN:VCALENDAR"},
        CalendarRow{"Contact", "BEGIN:VCARD\nEND:VCARD\n", "",
                    "is no calendar: it does not begin with BEGIN:VCALENDAR"},
        CalendarRow{"CutShort", "BEGIN:VCALENDAR\nMETHOD:REQUEST\n", "",
                    "is no whole calendar: END:VCALENDAR is missing"},
        CalendarRow{"OtherMethod", "BEGIN:VCALENDAR\nMETHOD:CANCEL\nEND:VCALENDAR\n", "REQUEST",
                    "its METHOD is CANCEL, not REQUEST"},
        CalendarRow{"MethodThatIsNoWord", "BEGIN:VCALENDAR\nMETHOD:a;b\nEND:VCALENDAR\n", "",
                    "its METHOD is no word"},
        CalendarRow{"SameMethod", "BEGIN:VCALENDAR\nMETHOD:CANCEL\nEND:VCALENDAR\n", "cancel", ""},
        CalendarRow{"NoMethod", "begin:vcalendar\r\nend:vcalendar\r\n", "PUBLISH", ""},
        CalendarRow{"MarkInFront",
                    "\xEF\xBB\xBF"
                    "BEGIN:VCALENDAR\nEND:VCALENDAR",
                    "", ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Invite, MissingCalendarIsAnErrorLine)
{
    const ToolRunner tool;
    const ToolResult result =
        tool.run(QStringList("invite") + kEnvelope + QStringList{"--ics", "missing"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tarvomime: missing: No such file or directory\n");
}

TEST(Sendable, RemovesWhatMustNotBeSent)
{
    const ToolRunner tool;
    tool.write("a.eml",
               "Subject: s\r\nBcc: x@y\r\nX-QRN-DSN: 1\r\nX-QRN-Message-Body-Size: 9\r\n"
               "Content-Type: multipart/mixed; boundary=b\r\n\r\n"
               "--b\r\nContent-Type: text/plain\r\nX-QRN-AS-Attn-Undownload: 1\r\n\r\nt\r\n"
               "--b--\r\n");
    for (const bool readOnly : {false, true}) {
        if (readOnly)
            QFile::setPermissions(tool.path("a.eml"), QFile::ReadOwner);
        const ToolResult result = tool.run({"sendable", "a.eml"});
        EXPECT_EQ(result.status, 0);
        EXPECT_THAT(result.out.toStdString(), HasSubstr("Subject: s\r\n"));
        EXPECT_THAT(result.out.toStdString(), Not(HasSubstr("Bcc")));
        EXPECT_THAT(result.out.toStdString(), Not(HasSubstr("X-QRN")));
        EXPECT_THAT(result.out.toStdString(), HasSubstr("\r\n\r\nt\r\n"));
    }
}

} // namespace compose_test
