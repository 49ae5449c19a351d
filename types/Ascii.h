// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

/// Character classes by ASCII rules only: no locale changes how mail is read.
namespace tarvomime {

constexpr char asciiLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char asciiUpper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// SP, HTAB, CR, LF, VT or FF.
constexpr bool isWhiteSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr bool isLineBreak(char c)
{
    return c == '\r' || c == '\n';
}

/// SP or HTAB: what makes a following line a continuation (RFC 5322, section 2.2.3).
constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// Without white space at both ends.
inline std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

inline bool equalIgnoringCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    // Most names are spelled alike: eight bytes are compared at once while they are.
    constexpr std::size_t kAtOnce = 8;
    while (a.size() >= kAtOnce && std::memcmp(a.data(), b.data(), kAtOnce) == 0) {
        a.remove_prefix(kAtOnce);
        b.remove_prefix(kAtOnce);
    }
    return std::equal(a.begin(), a.end(), b.begin(),
                      [](char x, char y) { return x == y || asciiLower(x) == asciiLower(y); });
}

} // namespace tarvomime
