// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <ctime>
#include <optional>

/// Calendar times (seconds since the epoch) against the clock of the C library's local zone.
namespace tarvomime {

/// `t` as broken-down local time; nothing for a time whose year no `int` holds. Times before the
/// epoch are counted back from the top of the unsigned range.
std::optional<std::tm> localTime(unsigned long t);

/// The calendar time of `clock`, read as local time with its daylight-saving flag. Fields out of
/// their range are carried over in `clock`, and day of week and of year are filled in. Nothing, and
/// `clock` left alone, when no calendar time fits.
std::optional<std::time_t> calendarTime(std::tm& clock);

/// The local zone's standard offset in minutes east of UTC, daylight saving aside.
long standardZone();

/// The rule behind `EMAIL_Util::convertTimeFormat`.
QString displayTime(unsigned long t);

} // namespace tarvomime
