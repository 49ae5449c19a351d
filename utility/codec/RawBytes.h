// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarvomime {

/// Text as the vector library wants it.
inline const std::uint8_t* rawBytes(const char* text)
{
    return reinterpret_cast<const std::uint8_t*>(text);
}

inline std::uint8_t* rawBytes(char* text)
{
    return reinterpret_cast<std::uint8_t*>(text);
}

} // namespace tarvomime
