// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Field.h"

#include <ctime>

/// The typed field "Date" (RFC 5322, section 3.3): a broken-down time and the zone it is told in.
///
/// While `mParsed` is 1 the members are valid and `assemble()` rewrites the body from them.
class TARVOMIME_EXPORT EMAIL_DateTime : public EMAIL_Field
{
public:
    EMAIL_DateTime();
    EMAIL_DateTime(const QCString& text, EMAIL_BaseComponent* parent);

    ~EMAIL_DateTime() override;
    /// Writes the date in the form "Tue, 5 Nov 2002 09:07:03 +0100".
    ///
    /// 1. Years below 1000 are padded with blanks, not zeros.
    /// 2. Day of week, month and the zone's hours wrap around (at 7, 12 and 24): whatever the
    ///    members hold, there is a name to write.
    void assemble() override;
    /// Reads the members from the body; an empty body changes nothing. What does not convert takes
    /// its default: day 1, January, 1970, 12:00:00; the zone keeps its value.
    ///
    /// 1. A day name is known only when it begins the body; everything else is a Sunday. Nobody
    ///    reads the day of week but to show the date again.
    /// 2. The year is taken as written: "02" is the year 2.
    /// 3. The seconds count only when the time has exactly three pieces.
    /// 4. Day of year and daylight-saving flag are left as they were.
    void parse() override;

    /// Stores `t` (seconds since the epoch) in local time; 0 means now. A time that no calendar
    /// holds stores the start of 1970.
    ///
    /// 1. While daylight saving is in force the clock is set back by an hour, so that it fits the
    ///    standard offset that is stored beside it. The flag of that earlier hour stays with it.
    void setTime(unsigned long t);
    /// The calendar time in seconds since the epoch (before it, counted back from the top of the
    /// range); 0 when there is none for what the members hold.
    ///
    /// 1. The members are read as local time and normalised in place: out-of-range fields are
    ///    carried over, day of week and of year are filled in, and under daylight saving the clock
    ///    moves to it.
    unsigned long getTime();
    /// A copy of `mTime`.
    struct tm getTmTime() const;

    /// The clock in the zone `mZone`; all zero at first.
    struct tm mTime = {};
    /// Minutes east of UTC, negative to the west.
    int mZone = 0;
};
