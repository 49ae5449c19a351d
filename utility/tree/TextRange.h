// SPDX-License-Identifier: MIT
#pragma once

#include "types/Ascii.h"

#include <cstddef>
#include <string_view>

namespace tarvomime {

/// Bytes of a text, from `start` up to `end`.
struct TextRange
{
    int start = 0;
    int end = 0;

    int length() const { return end - start; }
    bool isEmpty() const { return end <= start; }
};

inline std::string_view viewOf(const char* data, TextRange range)
{
    return {data + range.start, static_cast<std::size_t>(range.length())};
}

/// The range without the CR and LF characters at its two ends; other white space stays.
inline TextRange withoutLineBreaks(const char* data, TextRange range)
{
    while (!range.isEmpty() && isLineBreak(data[range.start]))
        ++range.start;
    while (!range.isEmpty() && isLineBreak(data[range.end - 1]))
        --range.end;
    return range;
}

} // namespace tarvomime
