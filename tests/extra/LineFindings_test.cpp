// SPDX-License-Identifier: MIT
#include "tests/support/FindingRows.h"

namespace line_findings_test {

namespace {

class LineFindings : public testing::TestWithParam<FindingRow>
{
};

} // namespace

TEST_P(LineFindings, AreFound)
{
    expectFindings(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Lines, LineFindings,
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
    rowName<FindingRow>);

} // namespace line_findings_test
