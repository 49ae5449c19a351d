// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tarvomime {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

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
