// SPDX-License-Identifier: MIT
// The short form of a calendar time in a message list.
#include "tests/support/LocalZone.h"
#include "utility/EMAIL_Util.h"

#include <climits>

namespace time_format_test {

namespace {

constexpr unsigned long march3 = 1046649600; // 3 Mar 2003 00:00:00 UTC

struct Row
{
    const char* name;
    const char* zone;
    unsigned long time;
    const char* shown;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.time << " in " << row.zone;
}

const Row rows[] = {
    {"Zero", zone::utc, 0, ""},
    {"Afternoon", zone::utc, march3 + 14 * 3600 + 5 * 60, "02:05 pm 03/03"},
    {"Midnight", zone::utc, march3, "00:00 am 03/03"},
    {"Morning", zone::utc, march3 + 9 * 3600 + 7 * 60 + 59, "09:07 am 03/03"},
    {"BeforeNoon", zone::utc, march3 + 12 * 3600 - 1, "11:59 am 03/03"},
    {"NoonIsInTheMorning", zone::utc, march3 + 12 * 3600, "12:00 am 03/03"},
    {"LastMinuteOfTheMorning", zone::utc, march3 + 13 * 3600 - 1, "12:59 am 03/03"},
    {"FirstMinuteOfTheAfternoon", zone::utc, march3 + 13 * 3600, "01:00 pm 03/03"},
    {"LastMinute", zone::utc, march3 + 24 * 3600 - 1, "11:59 pm 03/03"},
    {"TwoDigitMonthAndDay", zone::utc, 1041292800, "00:00 am 12/31"},
    {"FirstSecondOfAll", zone::utc, 1, "00:00 am 01/01"},
    {"China", zone::china, march3, "08:00 am 03/03"},
    {"India", zone::india, march3, "05:30 am 03/03"},
    {"FarEast", zone::farEast, march3, "02:00 pm 03/03"},
    {"FarWest", zone::farWest, march3, "12:00 am 03/02"},
    {"Winter", zone::newYork, march3, "07:00 pm 03/02"},
    {"SummerInDaylightSaving", zone::newYork, 1026464400, "05:00 am 07/12"},
    {"SecondBeforeDaylightSaving", zone::newYork, 1015743599, "01:59 am 03/10"},
    {"FirstSecondOfDaylightSaving", zone::newYork, 1015743600, "03:00 am 03/10"},
    {"LastSecondOfDaylightSaving", zone::newYork, 1036303199, "01:59 am 11/03"},
    {"FirstSecondOfStandardTime", zone::newYork, 1036303200, "01:00 am 11/03"},
    {"BeforeTheEpoch", zone::utc, ULONG_MAX, "11:59 pm 12/31"},
#if ULONG_MAX > 0xFFFFFFFF // shorter times are all in the calendar
    {"Beyond32Bits", zone::utc, 4294967296, "06:28 am 02/07"},
    {"BeyondEveryCalendar", zone::utc, LONG_MAX, ""},
#endif
};

class TimeFormatRow : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(TimeFormatRow, IsShown)
{
    const LocalZone local(GetParam().zone);
    const QString shown = EMAIL_Util::convertTimeFormat(GetParam().time);
    EXPECT_EQ(shown, QString::fromLatin1(GetParam().shown));
    EXPECT_FALSE(shown.isNull());
}

INSTANTIATE_TEST_SUITE_P(Rows, TimeFormatRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

} // namespace time_format_test
