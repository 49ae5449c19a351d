// SPDX-License-Identifier: MIT
// The Date field's calendar times in several local zones.
#include "tests/support/LocalZone.h"
#include "utility/EMAIL_DateTime.h"

#include <climits>

namespace email_date_time_zones_test {

namespace {

constexpr unsigned long november = 1037091600; // 12 Nov 2002 09:00:00 UTC
constexpr unsigned long july = 1026464400;     // 12 Jul 2002 09:00:00 UTC
constexpr unsigned long hour = 3600;

EMAIL_DateTime& parsed(EMAIL_DateTime& date, const QCString& body)
{
    date.mBody = body;
    date.parse();
    return date;
}

struct SetRow
{
    const char* name;
    const char* zone;
    unsigned long time;
    QByteArray written;
    // What the text reads as again; it differs from `time` in the first hour of daylight saving.
    unsigned long readAgain;
    int daylightSaving;
};

void PrintTo(const SetRow& row, std::ostream* out)
{
    *out << row.time << " in " << row.zone;
}

const SetRow setRows[] = {
    {"Utc", zone::utc, november, "Tue, 12 Nov 2002 09:00:00 +0000", november, 0},
    {"China", zone::china, november, "Tue, 12 Nov 2002 17:00:00 +0800", november, 0},
    {"India", zone::india, november, "Tue, 12 Nov 2002 14:30:00 +0530", november, 0},
    {"FarEast", zone::farEast, november, "Tue, 12 Nov 2002 23:00:00 +1400", november, 0},
    {"FarWest", zone::farWest, november, "Mon, 11 Nov 2002 21:00:00 -1200", november, 0},
    {"NewYorkWinter", zone::newYork, november, "Tue, 12 Nov 2002 04:00:00 -0500", november, 0},
    {"NewYorkSummerIsToldInStandardTime", zone::newYork, july, "Fri, 12 Jul 2002 04:00:00 -0500",
     july, 1},
    {"AucklandWinter", zone::auckland, july, "Fri, 12 Jul 2002 21:00:00 +1200", july, 0},
    {"AucklandSummerIsToldInStandardTime", zone::auckland, november,
     "Tue, 12 Nov 2002 21:00:00 +1200", november, 1},
    {"LastSecondOfStandardTime", zone::newYork, 1015743599, "Sun, 10 Mar 2002 01:59:59 -0500",
     1015743599, 0},
    {"FirstSecondOfDaylightSaving", zone::newYork, 1015743600, "Sun, 10 Mar 2002 01:00:00 -0500",
     1015743600 - hour, 0},
    {"SecondHourOfDaylightSaving", zone::newYork, 1015743600 + hour,
     "Sun, 10 Mar 2002 03:00:00 -0500", 1015743600 + hour, 1},
    {"LastSecondOfDaylightSaving", zone::newYork, 1036303199, "Sun, 3 Nov 2002 00:59:59 -0500",
     1036303199, 1},
    {"FirstSecondOfStandardTime", zone::newYork, 1036303200, "Sun, 3 Nov 2002 01:00:00 -0500",
     1036303200, 0},
    {"OneSecond", zone::utc, 1, "Thu, 1 Jan 1970 00:00:01 +0000", 1, 0},
    {"BeforeTheEpoch", zone::utc, ULONG_MAX, "Wed, 31 Dec 1969 23:59:59 +0000", ULONG_MAX, 0},
#if ULONG_MAX > 0xFFFFFFFF // shorter times are all in the calendar
    {"BeyondEveryCalendar", zone::utc, LONG_MAX, "Thu, 1 Jan 1970 00:00:00 +0000", 0, 0},
    {"BeforeEveryCalendar", zone::utc, 1UL << 63, "Thu, 1 Jan 1970 00:00:00 +0000", 0, 0},
#endif
};

class EMAIL_DateTimeSet : public testing::TestWithParam<SetRow>
{
};

} // namespace

TEST_P(EMAIL_DateTimeSet, WritesLocalStandardTime)
{
    const SetRow& row = GetParam();
    const LocalZone local(row.zone);
    EMAIL_DateTime date;
    date.setTime(row.time);
    EXPECT_EQ(date.mParsed, 1);
    EXPECT_EQ(date.mTime.tm_isdst, row.daylightSaving);
    date.assemble();
    EXPECT_EQ(date.mBody, row.written);
    EMAIL_DateTime again;
    EXPECT_EQ(parsed(again, date.mBody).getTime(), row.readAgain);
    // The field itself still tells the clock with its daylight-saving flag.
    const unsigned long shift = row.daylightSaving == 1 ? hour : 0;
    EXPECT_EQ(date.getTime(), row.readAgain - shift);
}

INSTANTIATE_TEST_SUITE_P(Rows, EMAIL_DateTimeSet, testing::ValuesIn(setRows),
                         [](const auto& row) { return row.param.name; });

TEST(EMAIL_DateTimeZones, WrittenDatesMeanTheSameEverywhere)
{
    const struct
    {
        const char* body;
        unsigned long time;
    } rows[] = {
        {"Tue, 12 Nov 2002 10:00:00 +0100", november},
        {"Tue, 12 Nov 2002 09:00:00 GMT", november},
        {"Tue, 12 Nov 2002 04:00:00 EST", november},
        {"Tue, 12 Nov 2002 22:59:00 +1359", november},
        {"Mon, 11 Nov 2002 21:00:00 -1200", november},
        {"Fri, 12 Jul 2002 10:00:00 +0100", july},
        {"Sun, 10 Mar 2002 02:30:00 -0500", 1015745400},
        {"Sun, 10 Mar 2002 03:00:00 -0500", 1015747200},
        {"Sun, 3 Nov 2002 01:30:00 -0500", 1036305000},
        {"Tue, 41 Oct 2002 34:00:00 +0100", november - hour * 24},
        {"Thu, 1 Jan 1970 00:00:00 +0000", 0},
        {"Wed, 31 Dec 1969 23:59:59 +0000", ULONG_MAX},
#if ULONG_MAX > 0xFFFFFFFF // a calendar of 32 bits ends one second earlier
        {"Tue, 19 Jan 2038 03:14:08 +0000", 2147483648},
#endif
    };
    for (const char* zone : zone::all) {
        const LocalZone local(zone);
        for (const auto& row : rows) {
            EMAIL_DateTime date;
            EXPECT_EQ(parsed(date, row.body).getTime(), row.time) << row.body << " in " << zone;
            EXPECT_EQ(date.getTime(), row.time) << "again: " << row.body << " in " << zone;
        }
    }
}

TEST(EMAIL_DateTimeZones, AskingForTheTimeNormalisesTheClock)
{
    const LocalZone local(zone::newYork);
    EMAIL_DateTime date;
    parsed(date, "Sun, 41 Oct 2002 34:00:00 -0500").getTime();
    EXPECT_EQ(date.getTmTime().tm_mday, 11);
    EXPECT_EQ(date.getTmTime().tm_mon, 10);
    EXPECT_EQ(date.getTmTime().tm_hour, 10);
    EXPECT_EQ(date.getTmTime().tm_wday, 1);
    EXPECT_EQ(date.getTmTime().tm_yday, 314);
    date.assemble();
    EXPECT_EQ(date.mBody, "Mon, 11 Nov 2002 10:00:00 -0500");
}

TEST(EMAIL_DateTimeZones, AskingForTheTimeMovesTheClockToDaylightSaving)
{
    const LocalZone local(zone::newYork);
    EMAIL_DateTime date;
    EXPECT_EQ(parsed(date, "Fri, 12 Jul 2002 04:00:00 -0500").getTime(), july);
    EXPECT_EQ(date.mTime.tm_isdst, 1);
    EXPECT_EQ(date.mTime.tm_hour, 5);
    EXPECT_EQ(date.mZone, -300);
}

TEST(EMAIL_DateTimeZones, ClockThatNoCalendarHoldsGivesZeroAndStays)
{
    const LocalZone local(zone::utc);
    EMAIL_DateTime date;
    date.mTime.tm_year = INT_MAX;
    date.mTime.tm_mon = 12;
    date.mTime.tm_mday = 1;
    date.mTime.tm_wday = 3;
    EXPECT_EQ(date.getTime(), 0u);
    EXPECT_EQ(date.mTime.tm_year, INT_MAX);
    EXPECT_EQ(date.mTime.tm_mon, 12);
    EXPECT_EQ(date.mTime.tm_wday, 3);
}

TEST(EMAIL_DateTimeZones, AbsurdZonesAreCountedInFull)
{
    const LocalZone local(zone::china);
    EMAIL_DateTime date;
    parsed(date, "Tue, 12 Nov 2002 09:00:00 Z");
    date.mZone = INT_MIN;
    EXPECT_EQ(date.getTime(), november + 2147483648UL * 60);
    date.mZone = INT_MAX;
    EXPECT_EQ(date.getTime(), november - 2147483647UL * 60);
}

TEST(EMAIL_DateTimeZones, ZeroIsNow)
{
    const LocalZone local(zone::india);
    const auto before = static_cast<unsigned long>(std::time(nullptr));
    EMAIL_DateTime date;
    date.setTime(0);
    const unsigned long now = date.getTime();
    const auto after = static_cast<unsigned long>(std::time(nullptr));
    EXPECT_LE(before, now);
    EXPECT_LE(now, after);
    EXPECT_EQ(date.mZone, 330);
    EXPECT_EQ(date.mParsed, 1);
}

TEST(EMAIL_DateTimeZones, FollowsAZoneThatChanges)
{
    EMAIL_DateTime date;
    for (const auto& [zone, minutes] : {std::pair(zone::china, 480), std::pair(zone::india, 330),
                                        std::pair(zone::newYork, -300)}) {
        const LocalZone local(zone);
        date.setTime(november);
        EXPECT_EQ(date.mZone, minutes) << zone;
        EXPECT_EQ(date.getTime(), november) << zone;
    }
}

TEST(EMAIL_DateTimeZones, ConstructingFromATextMakesTheZoneCurrent)
{
    const LocalZone local(zone::utc);
    setenv("TZ", zone::india, 1);
    ASSERT_EQ(timezone, 0) << "nobody has looked at the new zone yet";
    const EMAIL_DateTime date(QCString("raw"), nullptr);
    EXPECT_EQ(timezone, -330 * 60);
}

} // namespace email_date_time_zones_test
