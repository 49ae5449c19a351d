// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

namespace bench {

/// Seconds since the epoch of a date as libraries give it that know it by its fields; `zone` is
/// hours times hundred and minutes, as it stands on the wire.
inline long long epochTime(int year, int month, int day, int hour, int minute, int second, int zone)
{
    std::tm clock = {};
    clock.tm_year = year - 1900;
    clock.tm_mon = month - 1;
    clock.tm_mday = day;
    clock.tm_hour = hour;
    clock.tm_min = minute;
    clock.tm_sec = second;
    return timegm(&clock) - (zone / 100 * 60 + zone % 100) * 60;
}

} // namespace bench
