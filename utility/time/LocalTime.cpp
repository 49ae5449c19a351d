// SPDX-License-Identifier: MIT
#include "utility/time/LocalTime.h"

#include "utility/time/DisplayNumber.h"

namespace tarvomime {

std::optional<std::tm> localTime(unsigned long t)
{
    const auto seconds = static_cast<std::time_t>(t);
    std::tm clock = {};
    // Unlike localtime(), the reentrant form may keep a zone that is no longer the current one.
    tzset();
    if (localtime_r(&seconds, &clock) == nullptr)
        return std::nullopt;
    return clock;
}

std::optional<std::time_t> calendarTime(std::tm& clock)
{
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
    tzset();
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
