// SPDX-License-Identifier: MIT
#include "extra/MessageFindings.h"

#include <QDirIterator>
#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>

using namespace tarvomime;

namespace {

struct FindingRow
{
    const char* name;
    QByteArray mail;
    // What is expected, as "severity code part offset length", the last two for bytes only.
    QStringList findings;
};

void PrintTo(const FindingRow& row, std::ostream* out)
{
    *out << row.name;
}

QByteArray mixed(const QByteArray& body)
{
    return "Content-Type: multipart/mixed; boundary=bound\n\n" + body;
}

// Offset of the body in what mixed() gives.
constexpr int kBody = 47;

QStringList linesOf(const QList<MessageFinding>& findings)
{
    QStringList lines;
    for (const MessageFinding& finding : findings) {
        QString line =
            severityName(finding.severity) + ' ' + findingName(finding.kind) + ' ' + finding.part;
        if (finding.length > 0)
            line += QString(" %1 %2").arg(finding.offset).arg(finding.length);
        lines += line;
    }
    return lines;
}

class Findings : public testing::TestWithParam<FindingRow>
{
};

} // namespace

TEST_P(Findings, AreFound)
{
    const QList<MessageFinding> findings = messageFindings(GetParam().mail);
    EXPECT_EQ(linesOf(findings).join('\n').toStdString(),
              GetParam().findings.join('\n').toStdString());
    for (const MessageFinding& finding : findings)
        EXPECT_FALSE(finding.text.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, Findings,
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
        FindingRow{"BlanksBehindTheDelimiter", mixed("--bound  \nA: b\n\nx\n--bound-- \t\n"), {}},
        FindingRow{"AlikeBoundariesOfOneMessage",
                   mixed("--bound\nContent-Type: multipart/mixed; boundary=Bound\n\n"
                         "--Bound\nA: b\n\nx\n--Bound--\n--bound--\n"),
                   {}},
        FindingRow{"DashesInText", mixed("--bound\nA: b\n\n-- \nme\n---\n--bound--\n"), {}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Fields, Findings,
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
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Charsets, Findings,
    testing::Values(
        FindingRow{"Unknown",
                   "Content-Type: text/plain; charset=x-none\n\nx\n",
                   {"warning unknown-charset 1"}},
        FindingRow{"Utf8", "Content-Type: text/plain; charset=utf-8\n\n\xC3\xA9\n", {}},
        FindingRow{"NotUtf8",
                   "Content-Type: text/plain; charset=utf-8\n\n\xE9\n",
                   {"warning wrong-charset 1"}},
        FindingRow{"NotUtf8InBase64",
                   "Content-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: base64\n\n"
                   "6Q==\n",
                   {"warning wrong-charset 1"}},
        FindingRow{"NotAscii",
                   "Content-Type: text/plain; charset=us-ascii\n\n\xE9\n",
                   {"warning wrong-charset 1"}},
        FindingRow{"Undeclared", "A: b\n\n\xC3\xA9\n", {"warning wrong-charset 1"}},
        FindingRow{"UndeclaredAscii", "A: b\n\nx\n", {}},
        FindingRow{"BytesOfAnImage", "Content-Type: image/png\n\n\xE9\n", {}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    HeaderEnds, Findings,
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
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Lines, Findings,
    testing::Values(
        FindingRow{"NulInTheHeader", QByteArray("A: b\0c\n\nx\n", 10), {"error nul-byte 1 4 1"}},
        FindingRow{"NulInTheBody", QByteArray("A: b\n\nx\0\0\n", 10), {"error nul-byte 1 7 1"}},
        FindingRow{"LoneCr", "A: b\n\nx\ry\r\nz\rw\n", {"warning lone-cr 1 7 1"}},
        FindingRow{"CrLf", "A: b\r\n\r\nx\r\n\r\n", {}},
        FindingRow{"LineOf998", "A: b\r\n\r\n" + QByteArray(998, 'x') + "\r\n", {}},
        FindingRow{"LineOf999",
                   "A: b\r\n\r\n" + QByteArray(999, 'x') + "\r\n",
                   {"warning long-line 1 8 999"}},
        FindingRow{
            "LongField", "A: " + QByteArray(996, 'x') + "\n\nx\n", {"warning long-line 1 0 999"}},
        FindingRow{"BinaryBody",
                   "Content-Type: image/png\nContent-Transfer-Encoding: binary\n\n" +
                       QByteArray("\0\r", 2) + QByteArray(999, 'x'),
                   {}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Encodings, Findings,
    testing::Values(
        FindingRow{"Unknown",
                   "Content-Transfer-Encoding: x-none\n\nx\n",
                   {"error unknown-encoding 1 0 33"}},
        FindingRow{"Empty", "Content-Transfer-Encoding:\n\nx\n", {}},
        FindingRow{"WholeBase64", "Content-Transfer-Encoding: base64\n\nAAAA\nAA==\n", {}},
        FindingRow{"PaddingOnALineOfItsOwn", "Content-Transfer-Encoding: base64\n\nAA=\n=\n", {}},
        FindingRow{"TwoPaddedPieces", "Content-Transfer-Encoding: base64\n\nAA==\nAAA=\n", {}},
        FindingRow{"CutBase64",
                   "Content-Transfer-Encoding: base64\n\nAAAA\nAAA\n",
                   {"error cut-base64 1"}},
        FindingRow{
            "CutInPadding", "Content-Transfer-Encoding: base64\n\nAA=\n", {"error cut-base64 1"}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Calendars, Findings,
    testing::Values(FindingRow{"SameMethod",
                               "Content-Type: text/calendar; method=request\n\n"
                               "BEGIN:VCALENDAR\nMETHOD:REQUEST\nEND:VCALENDAR\n",
                               {}},
                    FindingRow{"OtherMethod",
                               "Content-Type: text/calendar; method=CANCEL\n\n"
                               "BEGIN:VCALENDAR\r\nmethod:request\r\nEND:VCALENDAR\r\n",
                               {"error method-mismatch 1"}},
                    FindingRow{"MethodOfAComponent",
                               "Content-Type: text/calendar; method=CANCEL\n\n"
                               "BEGIN:VCALENDAR\nBEGIN:VEVENT\nMETHOD:REQUEST\n",
                               {}},
                    FindingRow{"NoMethod",
                               "Content-Type: text/calendar; method=CANCEL\n\nBEGIN:VCALENDAR\n",
                               {}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FindingsOfADeepMessage, End)
{
    const QByteArray mail =
        QByteArray("Content-Type: message/rfc822\n\n").repeated(5000) + "A: b\n\n";
    const QList<MessageFinding> findings = messageFindings(mail);
    ASSERT_EQ(findings.size(), 1);
    EXPECT_EQ(findings.last().kind, FindingKind::TooDeep);
}

// Readable, though the exact library has no number for them.
TEST(FindingsOfACharset, DependOnWhetherItCanBeRead)
{
    EXPECT_TRUE(
        messageFindings("Content-Type: text/plain; charset=windows-1251\n\n\xE9\n").isEmpty());
}

TEST(NamesOfFindings, Differ)
{
    QStringList names;
    for (int kind = 0; kind <= int(FindingKind::TooDeep); ++kind)
        names += QString::fromLatin1(findingName(FindingKind(kind)));
    EXPECT_EQ(names.removeDuplicates(), 0);
}

TEST(FindingsOfRealMail, LieInTheirMessage)
{
    if (!QDir(TARVOMIME_CORPUS_DIR).exists())
        GTEST_SKIP() << "no collection of real messages at " TARVOMIME_CORPUS_DIR;
    QDirIterator files(TARVOMIME_CORPUS_DIR, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        for (const MessageFinding& finding : messageFindings(bytes)) {
            EXPECT_GE(finding.offset, 0);
            EXPECT_LE(finding.offset + finding.length, bytes.size())
                << file.fileName().toStdString();
        }
    }
}
