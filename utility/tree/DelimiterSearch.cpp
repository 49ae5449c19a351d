// SPDX-License-Identifier: MIT
#include "utility/tree/DelimiterSearch.h"

namespace tarvomime {

namespace {

constexpr std::string_view kDashes = "--";

} // namespace

std::size_t findDelimiterLine(std::string_view text, std::size_t from, std::string_view boundary)
{
    constexpr auto kNpos = std::string_view::npos;
    // The last byte is looked at beside the first two: what only begins like a delimiter line, as
    // the lines of other levels do, mostly differs there.
    const std::size_t distance = kDashes.size() + boundary.size();
    const char last = boundary.empty() ? kDashes.back() : boundary.back();
    const std::size_t places = text.size() > distance ? text.size() - distance : 0;
    for (; from < places; ++from) {
        from += placesWithout(text.data() + from, places - from, distance, last);
        from = text.find('\n', from);
        if (from >= places)
            return kNpos;
        const std::string_view line = text.substr(from + 1, distance);
        if (line.substr(0, kDashes.size()) == kDashes && line.substr(kDashes.size()) == boundary)
            return from;
    }
    return kNpos;
}

} // namespace tarvomime
