// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

struct LintRow
{
    const char* name;
    QByteArray mail;
    /// What is expected, as "code part offset length".
    QStringList findings;
};

QByteArray mixed(const QByteArray& body)
{
    return "Content-Type: multipart/mixed; boundary=bound\n\n" + body;
}

// Offset of the body in what mixed() gives.
constexpr int kBody = 47;

class Lint : public testing::TestWithParam<LintRow>
{
};

} // namespace

TEST_P(Lint, Finds)
{
    const ToolRunner tool;
    tool.write("a.eml", GetParam().mail);
    const ToolResult result = tool.run({"lint", "--json", "a.eml"});
    EXPECT_EQ(result.status, 0) << testing::PrintToString(result);
    QStringList findings;
    const QJsonObject report = QJsonDocument::fromJson(result.out).object();
    EXPECT_EQ(report.value("file").toString(), "a.eml");
    for (const QJsonValue& value : report.value("findings").toArray()) {
        const QJsonObject finding = value.toObject();
        EXPECT_FALSE(finding.value("explanation").toString().isEmpty());
        QString line = finding.value("code").toString() + ' ' + finding.value("part").toString();
        if (finding.contains("offset"))
            line += QString(" %1 %2")
                        .arg(finding.value("offset").toInt())
                        .arg(finding.value("length").toInt());
        findings += line;
    }
    EXPECT_EQ(findings, GetParam().findings) << result.out.constData();
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, Lint,
    testing::Values(
        LintRow{"Clean", mixed("--bound\nA: b\n\nx\n--bound--\n"), {}},
        LintRow{"CleanWithCrLf",
                "Content-Type: multipart/mixed; boundary=bound\r\n\r\n--bound\r\nA: b\r\n\r\nx\r\n"
                "--bound--\r\n",
                {}},
        LintRow{"Preamble",
                mixed("see\n--bound\nA: b\n\nx\n--bound--\n"),
                {QString("bytes-in-no-part 1 %1 4").arg(kBody)}},
        LintRow{"Epilogue",
                mixed("--bound\nA: b\n\nx\n--bound--\nmore\n"),
                {QString("bytes-in-no-part 1 %1 5").arg(kBody + 26)}},
        LintRow{"NoClosingDelimiter",
                mixed("--bound\nA: b\n\nx\n"),
                {"no-closing-delimiter 1", QString("bytes-in-no-part 1 %1 8").arg(kBody + 8)}},
        LintRow{"NoDelimiter",
                mixed("text\n"),
                {"no-delimiter 1", QString("bytes-in-no-part 1 %1 5").arg(kBody)}},
        LintRow{"NearMissByCase",
                mixed("--bound\nA: b\n\nx\n--Bound\ny\n--bound--\n"),
                {QString("boundary-near-miss 1 %1 7").arg(kBody + 16)}},
        LintRow{"NearMissByBlank",
                mixed("--bound\nA: b\n\nx\n --bound\ny\n--bound--\n"),
                {QString("boundary-near-miss 1 %1 8").arg(kBody + 16)}},
        LintRow{"NearMissByDashes",
                mixed("--bound\nA: b\n\nx\n-bound\ny\n--bound--\n"),
                {QString("boundary-near-miss 1 %1 6").arg(kBody + 16)}},
        LintRow{"LongerThanTheDelimiter",
                mixed("--bound\nA: b\n\nx\n--bounds\nC: d\n\ny\n--bound--\n"),
                {QString("boundary-near-miss 1 %1 8").arg(kBody + 16)}},
        LintRow{"BlanksBehindTheDelimiter", mixed("--bound  \nA: b\n\nx\n--bound-- \t\n"), {}},
        LintRow{"AlikeBoundariesOfOneMessage",
                mixed("--bound\nContent-Type: multipart/mixed; boundary=Bound\n\n"
                      "--Bound\nA: b\n\nx\n--Bound--\n--bound--\n"),
                {}},
        LintRow{"DashesInText", mixed("--bound\nA: b\n\n-- \nme\n---\n--bound--\n"), {}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Fields, Lint,
    testing::Values(
        LintRow{"TwoContentTypes",
                "Content-Type: text/plain\ncontent-type: text/html\n\nx\n",
                {"duplicate-field 1"}},
        LintRow{"TwoDispositions",
                "Content-Disposition: inline\nContent-Disposition: attachment\n\nx\n",
                {"duplicate-field 1"}},
        LintRow{"EscapingName",
                "Content-Disposition: attachment; filename=\"../../x\"\n\nx\n",
                {"unsafe-name 1"}},
        LintRow{"EscapingNameOfTheType",
                "Content-Type: image/png; name=\"=?utf-8?Q?=2Fetc=2Fx?=\"\n\nx\n",
                {"unsafe-name 1"}},
        LintRow{"SafeName", "Content-Disposition: attachment; filename=\"x y.txt\"\n\nx\n", {}},
        LintRow{
            "EncodedLineBreak", "Subject: =?utf-8?Q?a=0ABcc:_x?=\n\nx\n", {"encoded-line-break 1"}},
        LintRow{"FoldedSubject", "Subject: =?utf-8?Q?a?=\n =?utf-8?Q?b?=\n\nx\n", {}},
        LintRow{"PrivateFields",
                "X-QRN-DSN: 1\nX-Message-PartID: 2\nX-Other: 3\n\nx\n",
                {"private-field 1", "private-field 1"}},
        LintRow{"UnknownWordCharset",
                "Subject: =?x-none?Q?a?= =?utf-8?Q?=3D?= =?x-none?Q?b?=\n\nx\n",
                {"unknown-charset 1"}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Charsets, Lint,
    testing::Values(
        LintRow{
            "Unknown", "Content-Type: text/plain; charset=x-none\n\nx\n", {"unknown-charset 1"}},
        LintRow{"Utf8", "Content-Type: text/plain; charset=utf-8\n\n\xC3\xA9\n", {}},
        LintRow{
            "NotUtf8", "Content-Type: text/plain; charset=utf-8\n\n\xE9\n", {"wrong-charset 1"}},
        LintRow{"NotUtf8InBase64",
                "Content-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: base64\n\n"
                "6Q==\n",
                {"wrong-charset 1"}},
        LintRow{"NotAscii",
                "Content-Type: text/plain; charset=us-ascii\n\n\xE9\n",
                {"wrong-charset 1"}},
        LintRow{"Undeclared", "A: b\n\n\xC3\xA9\n", {"wrong-charset 1"}},
        LintRow{"UndeclaredAscii", "A: b\n\nx\n", {}},
        LintRow{"BytesOfAnImage", "Content-Type: image/png\n\n\xE9\n", {}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(LintForPeople, IsALineAFinding)
{
    const ToolRunner tool;
    tool.write("a.eml", mixed("see\n--bound\nA: b\n\nx\n--bound--\n"));
    EXPECT_EQ(tool.run({"lint", "a.eml"}).out,
              "a.eml: part 1: bytes in front of the first part belong to no part (4 bytes at 47) "
              "[bytes-in-no-part]\n");
}

TEST(LintOfADeepMessage, Ends)
{
    const ToolRunner tool;
    tool.write("a.eml", QByteArray("Content-Type: message/rfc822\n\n").repeated(5000) + "A: b\n");
    const ToolResult result = tool.run({"lint", "a.eml"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.out.endsWith("[too-deep]\n")) << testing::PrintToString(result);
}
