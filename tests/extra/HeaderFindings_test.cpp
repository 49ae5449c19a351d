// SPDX-License-Identifier: MIT
#include "tests/support/FindingRows.h"

namespace header_findings_test {

namespace {

class HeaderFindings : public testing::TestWithParam<FindingRow>
{
};

} // namespace

TEST_P(HeaderFindings, AreFound)
{
    expectFindings(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Fields, HeaderFindings,
    testing::Values(
        FindingRow{"TwoContentTypes",
                   "Content-Type: text/plain\ncontent-type: text/html\n\nx\n",
                   {"error duplicate-field 1 25 23"}},
        FindingRow{"TwoDispositions",
                   "Content-Disposition: inline\nContent-Disposition: attachment\n\nx\n",
                   {"error duplicate-field 1 28 31"}},
        FindingRow{"FieldsOfWhichOneMayBe",
                   "From: a@b.example\nTo: c@d.example\nfrom: e@f.example\nTO: g@h.example\n"
                   "to: i@j.example\nReceived: x\nReceived: y\n\nx\n",
                   {"error duplicate-field 1 34 17", "error duplicate-field 1 52 15"}},
        FindingRow{"TwoSubjectsInAnEnclosedMessage",
                   "Content-Type: message/rfc822\n\nSubject: a\nSubject: b\n\nx\n",
                   {"error duplicate-field 1.1 41 10"}},
        FindingRow{
            "TwoSubjectsInAPart", mixed("--bound\nSubject: a\nSubject: b\n\nx\n--bound--\n"), {}},
        FindingRow{"EscapingName",
                   "Content-Disposition: attachment; filename=\"../../x\"\n\nx\n",
                   {"warning unsafe-name 1"}},
        FindingRow{"EscapingNameOfTheType",
                   "Content-Type: image/png; name=\"=?utf-8?Q?=2Fetc=2Fx?=\"\n\nx\n",
                   {"warning unsafe-name 1"}},
        FindingRow{"SafeName", "Content-Disposition: attachment; filename=\"x y.txt\"\n\nx\n", {}},
        FindingRow{"EncodedLineBreak",
                   "Subject: =?utf-8?Q?a=0ABcc:_x?=\n\nx\n",
                   {"error encoded-line-break 1 0 31"}},
        FindingRow{"FoldedSubject", "Subject: =?utf-8?Q?a?=\n =?utf-8?Q?b?=\n\nx\n", {}},
        FindingRow{"PrivateFields",
                   "X-QRN-DSN: 1\nX-Message-PartID: 2\nX-Other: 3\n\nx\n",
                   {"warning private-field 1 0 12", "warning private-field 1 13 19"}},
        FindingRow{"UnknownWordCharset",
                   "Subject: =?x-none?Q?a?= =?utf-8?Q?=3D?= =?x-none?Q?b?=\n\nx\n",
                   {"warning unknown-charset 1 0 54"}}),
    rowName<FindingRow>);

INSTANTIATE_TEST_SUITE_P(
    HeaderEnds, HeaderFindings,
    testing::Values(
        FindingRow{"Cut", "A: b\nC: d\n", {"warning unfinished-header 1"}},
        FindingRow{"EndsWithAnEmptyLine", "A: b\r\n\r\n", {}},
        FindingRow{"LineThatIsNoField", "A: b\nhello\n\nx\n", {"warning unfinished-header 1 5 5"}},
        FindingRow{"NoField", "hello\r\n", {"warning unfinished-header 1 0 5"}},
        FindingRow{"EmptyHeader", "\nhello\n", {}}, FindingRow{"Nothing", "", {}},
        FindingRow{"PartWithoutFields", mixed("--bound\n\nx\n--bound--\n"), {}},
        FindingRow{"PartWithoutBody", mixed("--bound\nA: b\n--bound--\n"), {}},
        FindingRow{"ByteOrderMark",
                   "\xEF\xBB\xBF"
                   "A: b\n\nx\n",
                   {"error mark-before-header 1 0 3"}},
        FindingRow{"SeparatorOfAnMbox",
                   "From a@b.example Mon Jun  3 10:15:00 2024\nA: b\n\nx\n",
                   {"note mark-before-header 1 0 41"}},
        FindingRow{"FieldFrom", "From: a@b.example\n\nx\n", {}}),
    rowName<FindingRow>);

namespace {

QByteArray manyWords(int count)
{
    QByteArray words;
    for (int i = 0; i < count; ++i)
        words += "\n =?x" + QByteArray::number(1000 + i) + "?q?a?=";
    return words;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    FieldsOfAFlood, HeaderFindings,
    testing::Values(
        FindingRow{"LabelsOfOneField", "A:" + manyWords(500) + "\n\nx\n",
                   repeated("warning unknown-charset 1 0 7502", 32)},
        FindingRow{"LabelsBelowALongName",
                   QByteArray(900, 'n') + ':' + manyWords(1) + "\n\nx\n",
                   {"warning unknown-charset 1 0 916"}},
        FindingRow{"LongLabel",
                   "A: =?" + QByteArray(900, 'x') + "?q?a?=\n\nx\n",
                   {"warning unknown-charset 1 0 911"}},
        FindingRow{"LabelsOfManyFields",
                   QByteArray("A: =?x-none?q?a?=\n").repeated(2) + "\nx\n",
                   {"warning unknown-charset 1 0 17", "warning unknown-charset 1 18 17"}},
        FindingRow{"LongPrivateName",
                   "X-QRN-" + QByteArray(900, 'n') + ": 1\n\nx\n",
                   {"warning private-field 1 0 909"}},
        FindingRow{"LineBreakBelowALongName",
                   QByteArray(900, 'n') + ": =?utf-8?q?=0A?=\n\nx\n",
                   {"error encoded-line-break 1 0 917"}},
        FindingRow{"LongFileName",
                   "Content-Type: image/png;\n name=\"/" + QByteArray(900, 'n') + "\"\n\nx\n",
                   {"warning unsafe-name 1"}}),
    rowName<FindingRow>);

namespace {

struct FloodRow
{
    const char* name;
    QByteArray field;
    tarvomime::FindingKind kind;
};

void PrintTo(const FloodRow& row, std::ostream* out)
{
    *out << row.name;
}

class FieldFlood : public testing::TestWithParam<FloodRow>
{
};

} // namespace

TEST_P(FieldFlood, IsAFewFindings)
{
    const QByteArray mail = GetParam().field.repeated(1000) + "\nx\n";
    const QList<tarvomime::MessageFinding> findings = tarvomime::messageFindings(mail);
    EXPECT_EQ(findings.size(), 32);
    for (const tarvomime::MessageFinding& finding : findings)
        EXPECT_EQ(finding.kind, GetParam().kind) << finding.text.toStdString();
    EXPECT_TRUE(findings.last().text.endsWith(", like 968 more"))
        << findings.last().text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Fields, FieldFlood,
                         testing::Values(FloodRow{"Labels", "A: =?x-none?q?a?=\n",
                                                  tarvomime::FindingKind::UnknownCharset},
                                         FloodRow{"LineBreaks", "A: =?utf-8?q?=0A?=\n",
                                                  tarvomime::FindingKind::EncodedLineBreak},
                                         FloodRow{"Private", "X-QRN-A: 1\n",
                                                  tarvomime::FindingKind::PrivateField}),
                         rowName<FloodRow>);

TEST(HeaderFindingsText, ShowsTheBeginningOfLongNames)
{
    const QList<tarvomime::MessageFinding> findings = tarvomime::messageFindings(
        QByteArray(201, 'n') + ": =?" + QByteArray(65, 'x') + "?q?a?=\n\nx\n");
    ASSERT_EQ(findings.size(), 1);
    EXPECT_EQ(findings.first().text.toUtf8(),
              "an encoded word of the field " + QByteArray(200, 'n') +
                  "... names the unknown charset \"" + QByteArray(64, 'x') + "...\"");
}

} // namespace header_findings_test
