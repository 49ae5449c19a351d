// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace tarvomime::tool {

/// One character of a text: its code point and length, or a single byte that is no UTF-8.
struct Character
{
    char32_t codePoint;
    std::size_t length;
    bool valid;
};

/// The first character of a text that is not empty.
Character firstCharacter(std::string_view text);

bool isUtf8(std::string_view text);

} // namespace tarvomime::tool
