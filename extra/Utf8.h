// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"

#include <cstddef>
#include <string_view>

namespace tarvomime {

/// One character of a text: its code point and length, or a single byte that is no UTF-8.
struct Utf8Character
{
    char32_t codePoint;
    std::size_t length;
    bool valid;
};

/// The first character of a text that is not empty.
TARVOMIME_EXTRA_EXPORT Utf8Character firstUtf8Character(std::string_view text);

/// Whether all of the text is UTF-8: shortest forms only, no surrogates, nothing cut off.
TARVOMIME_EXTRA_EXPORT bool isUtf8(std::string_view text);

} // namespace tarvomime
