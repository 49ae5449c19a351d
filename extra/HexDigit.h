// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tarvomime {

/// -1 for what is no digit.
inline int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The byte that two digits at the start of `text` stand for, or -1.
inline int hexByte(std::string_view text)
{
    const int high = text.size() >= 2 ? hexDigit(text[0]) : -1;
    const int low = high >= 0 ? hexDigit(text[1]) : -1;
    return low < 0 ? -1 : high * 16 + low;
}

} // namespace tarvomime
