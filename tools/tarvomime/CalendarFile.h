// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <string>
#include <string_view>

namespace tarvomime::tool {

/// What a message that carries a calendar needs to know of it (RFC 5545, section 3.4).
struct CalendarFile
{
    /// Why it is no calendar; empty where it is one.
    std::string problem;
    /// The METHOD of its first object; empty where it has none.
    QByteArray method;
};

CalendarFile readCalendar(std::string_view bytes);

/// Whether a text can be a method: letters, digits and hyphens.
bool isCalendarMethod(std::string_view method);

} // namespace tarvomime::tool
