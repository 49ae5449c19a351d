// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Field.h"

#include <ctime>

/// The typed field "Date" (RFC 5322, section 3.3): a broken-down time and its zone.
class TARVOMIME_EXPORT EMAIL_DateTime : public EMAIL_Field
{
public:
    EMAIL_DateTime();
    EMAIL_DateTime(const QCString& text, EMAIL_BaseComponent* parent);

    ~EMAIL_DateTime() override;
    void assemble() override;
    void parse() override;

    void setTime(unsigned long t);
    unsigned long getTime();
    struct tm getTmTime() const;

    struct tm mTime;
    /// Minutes east of UTC.
    int mZone = 0;
};
