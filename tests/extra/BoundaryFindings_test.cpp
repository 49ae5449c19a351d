// SPDX-License-Identifier: MIT
#include "tests/support/FindingRows.h"

namespace boundary_findings_test {

namespace {

class BoundaryFindings : public testing::TestWithParam<FindingRow>
{
};

} // namespace

TEST_P(BoundaryFindings, AreFound)
{
    expectFindings(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, BoundaryFindings,
    testing::Values(
        FindingRow{"Clean", mixed("--bound\nA: b\n\nx\n--bound--\n"), {}},
        FindingRow{
            "CleanWithCrLf",
            "Content-Type: multipart/mixed; boundary=bound\r\n\r\n--bound\r\nA: b\r\n\r\nx\r\n"
            "--bound--\r\n",
            {}},
        FindingRow{"Preamble",
                   mixed("see\n--bound\nA: b\n\nx\n--bound--\n"),
                   {QString("note bytes-in-no-part 1 %1 4").arg(kBody)}},
        FindingRow{"Epilogue",
                   mixed("--bound\nA: b\n\nx\n--bound--\nmore\n"),
                   {QString("note bytes-in-no-part 1 %1 5").arg(kBody + 26)}},
        FindingRow{"PreambleWithAPart",
                   mixed("Content-Type: text/html\n--bound\nA: b\n\nx\n--bound--\n"),
                   {QString("error bytes-in-no-part 1 %1 24").arg(kBody)}},
        FindingRow{"EpilogueWithAPart",
                   mixed("--bound\nA: b\n\nx\n--bound--\n--other\n"),
                   {QString("error bytes-in-no-part 1 %1 8").arg(kBody + 26)}},
        FindingRow{"EpilogueOfAMailingList",
                   mixed("--bound\nA: b\n\nx\n--bound--\n-- \n____\nThe list\n"),
                   {QString("note bytes-in-no-part 1 %1 18").arg(kBody + 26)}},
        FindingRow{"LongEpilogue",
                   mixed("--bound\nA: b\n\nx\n--bound--\n" + QByteArray("abc\n").repeated(1025)),
                   {QString("error bytes-in-no-part 1 %1 4100").arg(kBody + 26)}},
        FindingRow{"NoClosingDelimiter",
                   mixed("--bound\nA: b\n\nx\n"),
                   {"warning no-closing-delimiter 1",
                    QString("error bytes-in-no-part 1 %1 8").arg(kBody + 8)}},
        FindingRow{"NoDelimiter",
                   mixed("text\n"),
                   {"error no-delimiter 1", QString("error bytes-in-no-part 1 %1 5").arg(kBody)}},
        FindingRow{
            "NoBoundary",
            "Content-Type: multipart/mixed\n\ntext\n",
            {"error no-boundary 1", "error no-delimiter 1", "error bytes-in-no-part 1 31 5"}},
        FindingRow{"NearMissByCase",
                   mixed("--bound\nA: b\n\nx\n--Bound\ny\n--bound--\n"),
                   {QString("warning boundary-near-miss 1 %1 7").arg(kBody + 16)}},
        FindingRow{"NearMissByBlank",
                   mixed("--bound\nA: b\n\nx\n --bound\ny\n--bound--\n"),
                   {QString("warning boundary-near-miss 1 %1 8").arg(kBody + 16)}},
        FindingRow{"NearMissByDashes",
                   mixed("--bound\nA: b\n\nx\n-bound\ny\n--bound--\n"),
                   {QString("warning boundary-near-miss 1 %1 6").arg(kBody + 16)}},
        FindingRow{"LongerThanTheDelimiter",
                   mixed("--bound\nA: b\n\nx\n--bounds\nC: d\n\ny\n--bound--\n"),
                   {QString("warning boundary-near-miss 1 %1 8").arg(kBody + 16)}},
        FindingRow{
            "ManyNearMisses",
            mixed("--bound\nA: b\n\nx\n" + QByteArray("-bound\n").repeated(1000) + "--bound--\n"),
            {QString("warning boundary-near-miss 1 %1 6").arg(kBody + 16),
             QString("warning boundary-near-miss 1 %1 6").arg(kBody + 23),
             QString("warning boundary-near-miss 1 %1 6").arg(kBody + 30),
             QString("warning boundary-near-miss 1 %1 6").arg(kBody + 37),
             QString("warning boundary-near-miss 1 %1 6").arg(kBody + 44)}},
        FindingRow{"ManyLongerThanTheDelimiter",
                   mixed("--bound\n-bound\n" + QByteArray("--bounds\n\nx\n").repeated(1000) +
                         "--bound--\n"),
                   {QString("warning boundary-near-miss 1 %1 6").arg(kBody + 8),
                    QString("warning boundary-near-miss 1 %1 8").arg(kBody + 15),
                    QString("warning boundary-near-miss 1 %1 8").arg(kBody + 27),
                    QString("warning boundary-near-miss 1 %1 8").arg(kBody + 39),
                    QString("warning boundary-near-miss 1 %1 8").arg(kBody + 51),
                    QString("warning boundary-near-miss 1 %1 8").arg(kBody + 63)}},
        FindingRow{"BlanksBehindTheDelimiter", mixed("--bound  \nA: b\n\nx\n--bound-- \t\n"), {}},
        FindingRow{"AlikeBoundariesOfOneMessage",
                   mixed("--bound\nContent-Type: multipart/mixed; boundary=Bound\n\n"
                         "--Bound\nA: b\n\nx\n--Bound--\n--bound--\n"),
                   {}},
        FindingRow{"DashesInText", mixed("--bound\nA: b\n\n-- \nme\n---\n--bound--\n"), {}}),
    rowName<FindingRow>);

TEST(BoundaryFindingsText, CountsTheLinesBehindTheFirstOnes)
{
    QStringList texts;
    for (const tarvomime::MessageFinding& finding : tarvomime::messageFindings(
             mixed("--bound\n\nx\n" + QByteArray("-bound\n--Bound\n").repeated(3) +
                   "--bounds\n\ny\n--bound--\n")))
        texts += finding.text;
    const QString almost = "a line almost matches the delimiter and is none";
    EXPECT_EQ(texts.join('\n').toStdString(),
              QStringList({almost, almost, almost, almost, almost + ", like 1 more",
                           "a line is longer than the delimiter and still taken as one"})
                  .join('\n')
                  .toStdString());
}

// Each line almost matches the boundaries of all that is open.
TEST(BoundaryFindingsFlood, IsAFewFindingsAContainer)
{
    constexpr int kLevels = 16;
    QByteArray mail;
    QByteArray ends;
    for (int i = 0; i < kLevels; ++i) {
        const QByteArray boundary = QByteArray(i, 'b') + QByteArray(kLevels - i, 'B');
        mail += "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary + '\n';
        ends = "--" + boundary + "--\n" + ends;
    }
    mail += '\n' + ('-' + QByteArray(kLevels, 'b') + '\n').repeated(1000) + ends;
    EXPECT_EQ(tarvomime::messageFindings(mail).size(), 5 * kLevels);
}

// Every line is held against the boundary, which may be as long as all of them together.
TEST(BoundaryFindingsFlood, EndsWhereTheBoundaryIsLong)
{
    constexpr int kMany = 200000;
    for (const QByteArray& boundary : {QByteArray(kMany, '-') + 'x', QByteArray(kMany, 'x')}) {
        const QByteArray lines = QByteArray("-\n").repeated(kMany);
        const QByteArray mail =
            "Content-Type: multipart/mixed; boundary=\"" + boundary + "\"\n\n" + lines;
        const QStringList found = linesOf(tarvomime::messageFindings(mail));
        EXPECT_TRUE(found.contains("error no-delimiter 1")) << found.join('\n').toStdString();
    }
}

} // namespace boundary_findings_test
