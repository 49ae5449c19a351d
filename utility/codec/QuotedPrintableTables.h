// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace tarvomime {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

/// What counts as the value of a byte that is no digit.
constexpr unsigned char kQpNoDigit = 70;

constexpr std::array<unsigned char, 256> makeQpHexValues()
{
    std::array<unsigned char, 256> values{};
    values.fill(kQpNoDigit);
    for (unsigned char value = 0; value < 16; ++value) {
        const char digit = kHexDigits[value];
        values[static_cast<unsigned char>(digit)] = value;
        values[static_cast<unsigned char>(digit | 0x20)] = value;
    }
    return values;
}

constexpr std::array<unsigned char, 256> kQpHexValues = makeQpHexValues();

/// The encoder breaks a line once it has passed this column.
constexpr int kQpLastColumn = 68;
constexpr std::string_view kQpSoftBreak = "=\r\n";

/// What the encoder copies as it is lies between these two, and is not "=".
constexpr unsigned char kQpFirstPlain = '$';
constexpr unsigned char kQpLastPlain = '~';

/// Whether the encoder writes a byte as "=XX".
constexpr bool isQpEscaped(unsigned char byte)
{
    return byte < kQpFirstPlain || byte > kQpLastPlain || byte == '=';
}

} // namespace tarvomime
