// SPDX-License-Identifier: MIT
#include "tools/tarvomime/CalendarFile.h"

#include <algorithm>

namespace tarvomime::tool {

namespace {

// The next line that is not blank, upper-case and without the blanks around it; empty at the end.
// Only names and words are looked at, which nobody folds.
QByteArray takeLine(std::string_view& rest)
{
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        QByteArray text = QByteArray(line.data(), static_cast<int>(line.size())).trimmed();
        if (!text.isEmpty())
            return text;
    }
    return {};
}

std::string_view withoutMark(std::string_view bytes)
{
    return bytes.substr(0, 3) == "\xEF\xBB\xBF" ? bytes.substr(3) : bytes;
}

// The value of "METHOD:value" or "METHOD;parameter:value"; null for another line.
QByteArray methodIn(const QByteArray& line)
{
    const QByteArray name = line.left(7).toUpper();
    if (name != "METHOD:" && name != "METHOD;")
        return {};
    const auto colon = line.indexOf(':');
    return colon < 0 ? QByteArray("") : line.mid(colon + 1).trimmed();
}

} // namespace

CalendarFile readCalendar(std::string_view bytes)
{
    CalendarFile calendar;
    std::string_view rest = withoutMark(bytes);
    if (takeLine(rest).toUpper() != "BEGIN:VCALENDAR") {
        calendar.problem = "is no calendar: it does not begin with BEGIN:VCALENDAR";
        return calendar;
    }
    for (;;) {
        const QByteArray line = takeLine(rest);
        const QByteArray method = methodIn(line);
        if (line.isEmpty())
            calendar.problem = "is no whole calendar: END:VCALENDAR is missing";
        else if (!method.isNull() && !isCalendarMethod(method.toStdString()))
            calendar.problem = "its METHOD is no word";
        else if (!method.isNull() && calendar.method.isEmpty())
            calendar.method = method;
        if (!calendar.problem.empty() || line.toUpper() == "END:VCALENDAR")
            return calendar;
    }
}

bool isCalendarMethod(std::string_view method)
{
    const auto isWordCharacter = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
               c == '-';
    };
    return !method.empty() && std::all_of(method.begin(), method.end(), isWordCharacter);
}

} // namespace tarvomime::tool
