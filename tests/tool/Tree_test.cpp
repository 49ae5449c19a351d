// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace tree_test {

namespace {

const QByteArray kMail = "Subject: s\r\n"
                         "Content-Type: multipart/mixed; boundary=\"o\"\r\n"
                         "\r\n"
                         "--o\r\n"
                         "Content-Type: text/plain; charset=\"UTF-8\"\r\n"
                         "\r\n"
                         "hello\r\n"
                         "--o\r\n"
                         "Content-Type: image/png; name=\"x.png\"\r\n"
                         "Content-Transfer-Encoding: base64\r\n"
                         "Content-Disposition: attachment; filename=\"=?utf-8?Q?=C3=A9.png?=\"\r\n"
                         "X-QRN-AS-Attn-Undownload: 1\r\n"
                         "X-QRN-AS-Attn-Size: 99\r\n"
                         "X-MESSAGE-PARTID: 2\r\n"
                         "\r\n"
                         "AAAA\r\n"
                         "--o\r\n"
                         "Content-Type: message/rfc822\r\n"
                         "\r\n"
                         "Content-Type: multipart/mixed; boundary=i\r\n"
                         "\r\n"
                         "--i\r\n"
                         "X: y\r\n"
                         "\r\n"
                         "z\r\n"
                         "--i--\r\n"
                         "--o--\r\n";

QJsonArray partsOf(const ToolResult& result)
{
    return QJsonDocument::fromJson(result.out).object().value("parts").toArray();
}

} // namespace

TEST(Tree, IsDrawnForPeople)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    const ToolResult result = tool.run({"tree", "a.eml"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "a.eml\n"
              "└─ 1  multipart/mixed, 398 bytes\n"
              "   ├─ 1.1  text/plain, UTF-8, 5 bytes\n"
              "   ├─ 1.2  image/png, base64, 3 bytes, attachment, \"é.png\", named \"x.png\", "
              "announcedSize: 99, downloaded: no, partId: 2\n"
              "   └─ 1.3  message/rfc822, 66 bytes\n"
              "      └─ 1.3.1  multipart/mixed, 21 bytes\n"
              "         └─ 1.3.1.1  text/plain, 1 byte\n");
}

TEST(Tree, IsJsonForPrograms)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    const ToolResult result = tool.run({"tree", "--json", "a.eml"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.count('\n'), 1);
    const QJsonArray parts = partsOf(result);
    ASSERT_EQ(parts.size(), 6);
    const QJsonObject image = parts.at(2).toObject();
    EXPECT_EQ(image.value("number").toString(), "1.2");
    EXPECT_EQ(image.value("level").toInt(), 2);
    EXPECT_EQ(image.value("type").toString(), "image/png");
    EXPECT_EQ(image.value("encoding").toString(), "base64");
    EXPECT_EQ(image.value("fileName").toString(), QString("é.png"));
    EXPECT_EQ(image.value("name").toString(), "x.png");
    EXPECT_EQ(image.value("disposition").toString(), "attachment");
    EXPECT_EQ(image.value("storedSize").toInt(), 4);
    EXPECT_EQ(image.value("size").toInt(), 3);
    const QJsonObject flags = image.value("flags").toObject();
    EXPECT_EQ(flags.value("downloaded"), QJsonValue(false));
    EXPECT_EQ(flags.value("announcedSize").toInt(), 99);
    EXPECT_EQ(flags.value("partId").toString(), "2");
}

TEST(Tree, TellsEveryPrivateField)
{
    const ToolRunner tool;
    tool.write("a.eml", "X-QRN-AS-Attn-Name: a b.pdf\n"
                        "X-QRN-AS-Attn-Size: 99\n"
                        "X-QRN-AS-Attn-Undownload: 0\n"
                        "X-QRN-Message-Body-Truncated: -1\n"
                        "X-QRN-Message-Body-Size: 70000\n"
                        "X-QRN-Smart-Send-Type: 2\n"
                        "X-QRN-DSN: 1\n"
                        "Return-Receipt-To: old@x\n"
                        "X-MESSAGE-PARTID: 1.2\n\nx");
    const ToolResult drawn = tool.run({"tree", "a.eml"});
    EXPECT_EQ(drawn.out, "a.eml\n"
                         "└─ 1  text/plain, 1 byte, announcedName: a b.pdf, announcedSize: 99, "
                         "deliveryNotification: yes, downloaded: no, fullSize: 70000, "
                         "partId: 1.2, receiptTo: old@x, smartSend: 2, truncated: -1\n");
    const QJsonObject flags =
        partsOf(tool.run({"tree", "--json", "a.eml"})).at(0).toObject().value("flags").toObject();
    const QJsonObject expected{
        {"announcedName", "a b.pdf"}, {"announcedSize", 99}, {"deliveryNotification", true},
        {"downloaded", false},        {"fullSize", 70000},   {"partId", "1.2"},
        {"receiptTo", "old@x"},       {"smartSend", 2},      {"truncated", -1}};
    EXPECT_EQ(flags, expected) << drawn.out.constData();
}

TEST(Tree, PrefersTheNewerReceiptRequest)
{
    const ToolRunner tool;
    tool.write("a.eml", "Return-Receipt-To: old@x\nDisposition-Notification-To: new@x\n\nx");
    EXPECT_TRUE(tool.run({"tree", "a.eml"}).out.contains("receiptTo: new@x\n"));
}

TEST(Tree, OfSeveralFilesIsALineEach)
{
    const ToolRunner tool;
    tool.write("a.eml", kMail);
    const ToolResult result = tool.run({"tree", "--json", "a.eml", "missing", "a.eml"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out.count('\n'), 2);
    EXPECT_EQ(result.err, "tarvomime: missing: No such file or directory\n");
}

TEST(Tree, ControlCharactersAreHarmless)
{
    const ToolRunner tool;
    tool.write("a.eml", "Content-Type: text/\x1B[2J\n\nx");
    const ToolResult result = tool.run({"tree", "a.eml"});
    EXPECT_FALSE(result.out.contains('\x1B')) << testing::PrintToString(result);
}

TEST(Tree, DeepMessagesHaveBoundedLines)
{
    const ToolRunner tool;
    tool.write("a.eml", QByteArray("Content-Type: message/rfc822\n\n").repeated(20000) + "A: b\n");
    const ToolResult drawn = tool.run({"tree", "a.eml"});
    EXPECT_EQ(drawn.status, 0);
    EXPECT_EQ(drawn.out.count('\n'), 20002);
    EXPECT_LT(drawn.out.size(), 20002 * 250);
    EXPECT_TRUE(drawn.out.contains("(level 20001)"));
    const QJsonArray parts = partsOf(tool.run({"tree", "--json", "a.eml"}));
    ASSERT_EQ(parts.size(), 20001);
    EXPECT_EQ(parts.at(20000).toObject().value("level").toInt(), 20001);
    EXPECT_FALSE(parts.at(20000).toObject().contains("number"));
}

TEST(Tree, MessagesAndContainersByTurnsAreFollowedToTheEnd)
{
    constexpr int levels = 3000;
    QByteArray text;
    QByteArray ends;
    for (int i = 0; i < levels; ++i) {
        const QByteArray boundary = "b" + QByteArray::number(i + 10000);
        text += "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary +
                "\nContent-Type: message/rfc822\n\n";
        ends.prepend("\n--" + boundary + "--");
    }
    const ToolRunner tool;
    tool.write("a.eml", text + "A: b\n\nx" + ends);
    const ToolResult result = tool.run({"tree", "--json", "a.eml"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(partsOf(result).size(), 2 * levels + 1);
}

} // namespace tree_test
