// SPDX-License-Identifier: MIT
#include "utility/time/CurrentZone.h"

#include "tests/support/LocalZone.h"

#include <gtest/gtest.h>
#include <utility>

namespace current_zone_test {

namespace {

// Seconds west of UTC, as the C library sees it now.
long secondsWest()
{
    return timezone;
}

TEST(CurrentZone, IsThatOfTzAtEachCall)
{
    const LocalZone restored(zone::utc);
    for (const auto& [rule, seconds] :
         {std::pair{zone::china, -8L * 3600}, {zone::newYork, 5L * 3600}, {zone::utc, 0L}}) {
        setenv("TZ", rule, 1);
        tarvomime::followZone();
        EXPECT_EQ(secondsWest(), seconds) << rule;
    }
}

TEST(CurrentZone, IsTheSystemsWithoutTz)
{
    const LocalZone restored(zone::utc);
    unsetenv("TZ");
    tzset();
    const long ofTheSystem = secondsWest();
    setenv("TZ", zone::india, 1);
    tarvomime::followZone();
    unsetenv("TZ");
    tarvomime::followZone();
    EXPECT_EQ(secondsWest(), ofTheSystem);
}

} // namespace

} // namespace current_zone_test
