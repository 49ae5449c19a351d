// SPDX-License-Identifier: MIT
// Calendar times beside those of mktime(), which they are to equal in every zone.
#include "tests/support/LocalZone.h"
#include "utility/time/LocalTime.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <random>

namespace local_time_test {

namespace {

constexpr long minute = 60;
constexpr long hour = 60 * minute;
constexpr long day = 24 * hour;
constexpr std::int64_t year = 365 * day;
// From 1910 on, as far as a calendar of 32 bits goes.
constexpr std::int64_t years = sizeof(std::time_t) > 4 ? 160 : 127;

struct Row
{
    const char* name;
    const char* zone;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.zone;
}

// A system without the files takes the named zones for UTC.
const Row rows[] = {
    {"Utc", zone::utc},
    {"India", zone::india},
    {"NewYork", zone::newYork},
    {"Auckland", zone::auckland},
    {"Berlin", "Europe/Berlin"},
    {"Dublin", "Europe/Dublin"},
    {"LordHowe", "Australia/Lord_Howe"},
    {"Apia", "Pacific/Apia"},
    {"SaoPaulo", "America/Sao_Paulo"},
    {"Casablanca", "Africa/Casablanca"},
};

class CalendarTime : public testing::TestWithParam<Row>
{
};

std::string shown(const std::tm& clock)
{
    char text[64];
    std::snprintf(text, sizeof text, "%d-%02d-%02d %02d:%02d:%02d dst %d day %d of week %d",
                  clock.tm_year + 1900, clock.tm_mon + 1, clock.tm_mday, clock.tm_hour,
                  clock.tm_min, clock.tm_sec, clock.tm_isdst, clock.tm_yday, clock.tm_wday);
    return text;
}

void expectEqual(const std::tm& clock)
{
    std::tm theirs = clock;
    std::tm ours = clock;
    const std::time_t expected = std::mktime(&theirs);
    const auto found = tarvomime::calendarTime(ours);
    ASSERT_TRUE(found.has_value()) << shown(clock);
    ASSERT_EQ(*found, expected) << shown(clock);
    ASSERT_EQ(shown(ours), shown(theirs)) << shown(clock);
    ASSERT_EQ(ours.tm_gmtoff, theirs.tm_gmtoff) << shown(clock);
}

// The clock of UTC at `time`, to be read as a local one.
std::tm clockAt(std::time_t time, int daylightSaving)
{
    std::tm clock = {};
    gmtime_r(&time, &clock);
    clock.tm_isdst = daylightSaving;
    return clock;
}

} // namespace

// The hours that a change of the clock repeats are left out: what mktime() makes of them depends on
// what it was asked before.
TEST_P(CalendarTime, IsThatOfTheCLibraryAllYearRound)
{
    const LocalZone local(GetParam().zone);
    std::mt19937 random(25);
    for (int i = 0; i < 1000 && !HasFatalFailure(); ++i) {
        const auto time = static_cast<std::time_t>(random() % (years * year) - 60 * year);
        for (const int daylightSaving : {0, 1, -1})
            expectEqual(clockAt(time / day * day + 12 * hour + time % hour, daylightSaving));
    }
}

TEST_P(CalendarTime, CarriesOverWhatIsOutOfRange)
{
    const LocalZone local(GetParam().zone);
    std::tm clock = {};
    clock.tm_year = 124;
    clock.tm_mon = 13;
    clock.tm_mday = 31;
    clock.tm_hour = 25;
    clock.tm_sec = 61;
    expectEqual(clock);
    clock.tm_mon = 1;
    clock.tm_hour = 12;
    clock.tm_sec = 0;
    expectEqual(clock);
}

TEST_P(CalendarTime, CarriesOverEachFieldThatIsOutOfRange)
{
    struct Field
    {
        int std::tm::*field;
        int below;
        int above;
    };
    const LocalZone local(GetParam().zone);
    for (const Field& row : {Field{&std::tm::tm_mon, -1, 12}, Field{&std::tm::tm_mday, 0, 32},
                             Field{&std::tm::tm_hour, -1, 24}, Field{&std::tm::tm_min, -1, 60},
                             Field{&std::tm::tm_sec, -1, 60}}) {
        for (const int value : {row.below, row.above}) {
            std::tm clock = {};
            clock.tm_year = 124;
            clock.tm_mon = 5;
            clock.tm_mday = 15;
            clock.tm_hour = 12;
            clock.*row.field = value;
            expectEqual(clock);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Zones, CalendarTime, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace local_time_test
