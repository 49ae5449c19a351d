// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <gtest/gtest.h>

namespace show_test {

namespace {

const QByteArray kInvitation =
    "From: =?utf-8?Q?J=C3=B6rn?= <j@b.example>\r\nTo: a@b.example\r\nSubject: Treffen\r\n"
    "Date: Mon, 3 Jun 2024 10:15:00 +0000\r\n"
    "Content-Type: multipart/alternative; boundary=b\r\n\r\n"
    "--b\r\nContent-Type: text/plain; charset=utf-8\r\n"
    "Content-Transfer-Encoding: quoted-printable\r\n\r\ngr=C3=BC=C3=9F=1B[2J\r\n"
    "--b\r\nContent-Type: text/calendar\r\nContent-Transfer-Encoding: base64\r\n\r\n"
    "QkVHSU46VkNBTEVOREFSDQo=\r\n"
    "--b--\r\n";

const QByteArray kImage = "Subject: s\r\nContent-Type: image/png\r\n\r\nx\r\n";

const QByteArray kHtml = "Subject: s\r\nContent-Type: text/html\r\n\r\n<p>x</p>\r\n";

} // namespace

TEST(Show, PrintsHeaderTreeAndText)
{
    const ToolRunner tool;
    tool.write("a.eml", kInvitation);
    const ToolResult result = tool.run({"show", "a.eml"});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(result.out.toStdString(), "From: Jörn <j@b.example>\n"
                                        "To: a@b.example\n"
                                        "Date: Mon, 3 Jun 2024 10:15:00 +0000\n"
                                        "Subject: Treffen\n"
                                        "\n"
                                        "└─ 1  multipart/alternative, 219 bytes\n"
                                        "   ├─ 1.1  text/plain, utf-8, quoted-printable, 20 bytes\n"
                                        "   └─ 1.2  text/calendar, base64, 18 bytes\n"
                                        "\n"
                                        "grüß\\x1B[2J\n");
}

TEST(Show, SaysThatThereIsNoText)
{
    const ToolRunner tool;
    tool.write("a.eml", kImage);
    const ToolResult result = tool.run({"show", "a.eml", "a.eml"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.count("(no message text)\n"), 2);
    EXPECT_TRUE(result.out.startsWith("==> a.eml <==\nSubject: s\n")) << result.out.constData();
    EXPECT_TRUE(result.out.contains(")\n\n==> a.eml <==\n")) << result.out.constData();
}

TEST(Show, ReadsReadOnlyFiles)
{
    const ToolRunner tool;
    QFile::setPermissions(tool.write("a.eml", kInvitation), QFile::ReadOwner);
    EXPECT_TRUE(tool.run({"show", "a.eml"}).out.contains("grüß"));
}

struct TextRow
{
    const char* name;
    QByteArray mail;
    QStringList options;
    const char* expected;
};

class Text : public testing::TestWithParam<TextRow>
{
};

TEST_P(Text, IsDecoded)
{
    const ToolRunner tool;
    tool.write("a.eml", GetParam().mail);
    const ToolResult result = tool.run(QStringList{"text", "a.eml"} + GetParam().options);
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    EXPECT_EQ(result.out.toStdString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, Text,
    testing::Values(
        TextRow{"Alternative", kInvitation, {}, "grüß\\x1B[2J\n"},
        TextRow{"NoContentType", "A: b\r\n\r\none\r\ntwo\r\n", {}, "one\ntwo\n"},
        TextRow{"Declared", "Content-Type: text/plain; charset=iso-8859-1\n\n\xE9\n", {}, "é\n"},
        TextRow{"DeclaredWinsOverTheOption",
                "Content-Type: text/plain; charset=iso-8859-1\n\n\xE9\n",
                {"--charset", "koi8-u"},
                "é\n"},
        TextRow{"UndeclaredIsUtf8", "Content-Type: text/plain\n\n\xC3\xA9\n", {}, "é\n"},
        TextRow{"UndeclaredWithoutContentType", "A: b\n\n\xC3\xA9\n", {}, "é\n"},
        TextRow{"UndeclaredAsAsked", "A: b\n\n\xE9\n", {"--charset", "iso-8859-1"}, "é\n"},
        TextRow{"UndeclaredPartAsAsked",
                "Content-Type: multipart/mixed; boundary=b\n\n--b\n"
                "Content-Type: text/plain\n\n\xE9\n--b--\n",
                {"--charset", "iso-8859-1"},
                "é\n"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(TextErrors, MessageWithoutText)
{
    const ToolRunner tool;
    tool.write("a.eml", kImage);
    const ToolResult result = tool.run({"text", "a.eml"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tarvomime: a.eml: has no message text\n");
}

TEST(Calendar, IsPrinted)
{
    const ToolRunner tool;
    tool.write("a.eml", kInvitation);
    const ToolResult result = tool.run({"calendar", "a.eml"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "BEGIN:VCALENDAR\r\n");
}

TEST(Calendar, IsFoundAmongAttachments)
{
    const ToolRunner tool;
    QByteArray mixed = kInvitation;
    tool.write("a.eml", mixed.replace("multipart/alternative", "multipart/mixed"));
    EXPECT_EQ(tool.run({"calendar", "a.eml"}).out, "BEGIN:VCALENDAR\r\n");
    QFile::setPermissions(tool.path("a.eml"), QFile::ReadOwner);
    EXPECT_EQ(tool.run({"calendar", "a.eml"}).out, "BEGIN:VCALENDAR\r\n");
}

TEST(Calendar, AbsentIsAnErrorLine)
{
    const ToolRunner tool;
    tool.write("a.eml", kHtml);
    const ToolResult result = tool.run({"calendar", "a.eml"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tarvomime: a.eml: has no calendar part\n");
}

} // namespace show_test
