// SPDX-License-Identifier: MIT
#include "tests/support/FindingRows.h"

namespace body_findings_test {

namespace {

class BodyFindings : public testing::TestWithParam<FindingRow>
{
};

} // namespace

TEST_P(BodyFindings, AreFound)
{
    expectFindings(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Charsets, BodyFindings,
    testing::Values(
        FindingRow{"Unknown",
                   "Content-Type: text/plain; charset=x-none\n\nx\n",
                   {"warning unknown-charset 1"}},
        FindingRow{"UnknownAndLong",
                   "Content-Type: text/plain;\n charset=" + QByteArray(900, 'x') + "\n\nx\n",
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
    rowName<FindingRow>);

INSTANTIATE_TEST_SUITE_P(
    Encodings, BodyFindings,
    testing::Values(
        FindingRow{"Unknown",
                   "Content-Transfer-Encoding: x-none\n\nx\n",
                   {"error unknown-encoding 1 0 33"}},
        FindingRow{"UnknownAndLong",
                   "Content-Transfer-Encoding: " + QByteArray(900, 'x') + "\n\nx\n",
                   {"error unknown-encoding 1 0 927"}},
        FindingRow{"Empty", "Content-Transfer-Encoding:\n\nx\n", {}},
        FindingRow{"WholeBase64", "Content-Transfer-Encoding: base64\n\nAAAA\nAA==\n", {}},
        FindingRow{"PaddingOnALineOfItsOwn", "Content-Transfer-Encoding: base64\n\nAA=\n=\n", {}},
        FindingRow{"TwoPaddedPieces", "Content-Transfer-Encoding: base64\n\nAA==\nAAA=\n", {}},
        FindingRow{"CutBase64",
                   "Content-Transfer-Encoding: base64\n\nAAAA\nAAA\n",
                   {"error cut-base64 1"}},
        FindingRow{
            "CutInPadding", "Content-Transfer-Encoding: base64\n\nAA=\n", {"error cut-base64 1"}}),
    rowName<FindingRow>);

INSTANTIATE_TEST_SUITE_P(
    Calendars, BodyFindings,
    testing::Values(FindingRow{"SameMethod",
                               "Content-Type: text/calendar; method=request\n\n"
                               "BEGIN:VCALENDAR\nMETHOD:REQUEST\nEND:VCALENDAR\n",
                               {}},
                    FindingRow{"OtherMethod",
                               "Content-Type: text/calendar; method=CANCEL\n\n"
                               "BEGIN:VCALENDAR\r\nmethod:request\r\nEND:VCALENDAR\r\n",
                               {"error method-mismatch 1"}},
                    FindingRow{"LongMethods",
                               "Content-Type: text/calendar;\n method=" + QByteArray(900, 'a') +
                                   "\n\nBEGIN:VCALENDAR\r\nMETHOD:" + QByteArray(900, 'b') + "\r\n",
                               {"error method-mismatch 1"}},
                    FindingRow{"MethodOfAComponent",
                               "Content-Type: text/calendar; method=CANCEL\n\n"
                               "BEGIN:VCALENDAR\nBEGIN:VEVENT\nMETHOD:REQUEST\n",
                               {}},
                    FindingRow{"NoMethod",
                               "Content-Type: text/calendar; method=CANCEL\n\nBEGIN:VCALENDAR\n",
                               {}}),
    rowName<FindingRow>);

// Readable, though the exact library has no number for them.
TEST(BodyFindingsOfACharset, DependOnWhetherItCanBeRead)
{
    EXPECT_TRUE(
        tarvomime::messageFindings("Content-Type: text/plain; charset=windows-1251\n\n\xE9\n")
            .isEmpty());
}

} // namespace body_findings_test
