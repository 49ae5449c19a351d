// SPDX-License-Identifier: MIT
#include "utility/time/ZoneOffset.h"

namespace zone_offset_test {

namespace {

struct Row
{
    const char* token;
    int minutes;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << '"' << row.token << '"';
}

class ZoneOffset : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(ZoneOffset, IsInMinutesEastOfUtc)
{
    EXPECT_EQ(tarvomime::zoneOffset(GetParam().token), GetParam().minutes);
}

INSTANTIATE_TEST_SUITE_P(Numbers, ZoneOffset,
                         testing::Values(Row{"+0000", 0}, Row{"-0000", 0}, Row{"+0530", 330},
                                         Row{"-1200", -720}, Row{"+01", 60}, Row{"+1:30", 600},
                                         Row{"+1", 0}, Row{"-", 0}, Row{"+01305", 90},
                                         Row{"+9999", 6039}, Row{"+0a30", 0}));

INSTANTIATE_TEST_SUITE_P(Names, ZoneOffset,
                         testing::Values(Row{"gmt", 0}, Row{"gmt+1", 0}, Row{"ut", 0},
                                         Row{"utc", 0}, Row{"est", -300}, Row{"edt", -240},
                                         Row{"cst", -360}, Row{"cstx", -360}, Row{"cdt", -300},
                                         Row{"mst", -420}, Row{"mdt", -360}, Row{"pst", -480},
                                         Row{"pdt", -420}, Row{"cet", -180}, Row{"xyz", 0}));

INSTANTIATE_TEST_SUITE_P(Letters, ZoneOffset,
                         testing::Values(Row{"z", 0}, Row{"g", 0}, Row{"gx", -420}, Row{"e", -300},
                                         Row{"m", -720}, Row{"p", 180}, Row{"u", 480},
                                         Row{"c", -180}, Row{"a", 0}));

} // namespace zone_offset_test
