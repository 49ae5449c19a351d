// SPDX-License-Identifier: MIT
#include "utility/time/LocalTime.h"

#include "utility/time/CurrentZone.h"
#include "utility/time/DisplayNumber.h"

#include <tuple>

namespace tarvomime {

namespace {

auto fieldsOf(const std::tm& clock)
{
    return std::tuple(clock.tm_year, clock.tm_mon, clock.tm_mday, clock.tm_hour, clock.tm_min,
                      clock.tm_sec);
}

bool isOrdinary(const std::tm& clock)
{
    const auto within = [](int value, int low, int high) { return value >= low && value <= high; };
    return within(clock.tm_year, 0, 400) && within(clock.tm_mon, 0, 11) &&
           within(clock.tm_mday, 1, 31) && within(clock.tm_hour, 0, 23) &&
           within(clock.tm_min, 0, 59) && within(clock.tm_sec, 0, 59);
}

std::optional<std::tm> clockAt(std::time_t seconds)
{
    std::tm clock = {};
    if (localtime_r(&seconds, &clock) == nullptr)
        return std::nullopt;
    return clock;
}

// The zone's offset of standard time that lies nearest to `seconds`, a time of daylight saving,
// looked for where mktime() looks: in steps of about a week, into the past first.
std::optional<long> nearestStandardOffset(std::time_t seconds)
{
    constexpr std::time_t kStep = 601200;
    constexpr std::time_t kYear = std::time_t{366} * 24 * 60 * 60;
    for (std::time_t distance = kStep; distance < kYear; distance += kStep) {
        for (const std::time_t time : {seconds - distance, seconds + distance}) {
            const auto clock = clockAt(time);
            if (clock && clock->tm_isdst == 0)
                return clock->tm_gmtoff;
        }
    }
    return std::nullopt;
}

// What mktime() gives, for nearly all dates without asking it, since it asks for the zone's file
// each time. Nothing where that takes more than the offset of a time nearby: at the edges of
// daylight saving, and for what is no ordinary standard time.
std::optional<std::time_t> ordinaryTime(std::tm& clock)
{
    std::tm asUtc = clock;
    if (clock.tm_isdst != 0 || !isOrdinary(clock))
        return std::nullopt;
    const std::time_t utc = timegm(&asUtc);
    const auto guess = clockAt(utc + timezone);
    auto found = guess ? clockAt(utc - guess->tm_gmtoff) : std::nullopt;
    if (!found || fieldsOf(*found) != fieldsOf(asUtc))
        return std::nullopt;
    std::time_t seconds = utc - found->tm_gmtoff;
    if (found->tm_isdst != 0) {
        const auto offset = nearestStandardOffset(seconds);
        seconds = offset ? utc - *offset : seconds;
        found = offset ? clockAt(seconds) : std::nullopt;
    }
    if (!found)
        return std::nullopt;
    clock = *found;
    return seconds;
}

} // namespace

std::optional<std::tm> localTime(unsigned long t)
{
    // Unlike localtime(), the reentrant form may keep a zone that is no longer the current one.
    followZone();
    return clockAt(static_cast<std::time_t>(t));
}

std::optional<std::time_t> calendarTime(std::tm& clock)
{
    followZone();
    if (const auto seconds = ordinaryTime(clock))
        return seconds;
    // -1 is also the second before the epoch. Only a success fills in the day of week.
    std::tm normalised = clock;
    normalised.tm_wday = -1;
    const std::time_t seconds = std::mktime(&normalised);
    if (normalised.tm_wday < 0)
        return std::nullopt;
    clock = normalised;
    return seconds;
}

long standardZone()
{
    followZone();
    return -timezone / 60;
}

QString displayTime(unsigned long t)
{
    const std::optional<std::tm> clock = t == 0 ? std::nullopt : localTime(t);
    if (!clock)
        return QStringLiteral("");
    const bool morning = clock->tm_hour < 13;
    const int hour = morning ? clock->tm_hour : clock->tm_hour - 12;
    return paddedNumber(hour) + QLatin1Char(':') + paddedNumber(clock->tm_min) +
           (morning ? QLatin1String(" am ") : QLatin1String(" pm ")) +
           paddedNumber(clock->tm_mon + 1) + QLatin1Char('/') + paddedNumber(clock->tm_mday);
}

} // namespace tarvomime
