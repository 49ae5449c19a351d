// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace tarvomime {

/// The position of the LF in front of the first line that begins with "--" and `boundary`, at or
/// behind `from`; npos when there is none. It runs as fast as memory is read where no line begins
/// with "-" and has the boundary's last byte in its place.
std::size_t findDelimiterLine(std::string_view text, std::size_t from, std::string_view boundary);

#ifdef TARVOMIME_SIMD

/// How many of the `count` places from `text` on can be passed over, because they do not hold LF
/// and "-" and, `distance` bytes behind the LF, the byte `last`. Stops in front of the first one
/// that does, or of the last few. `count + distance` bytes are read at most.
std::size_t placesWithout(const char* text, std::size_t count, std::size_t distance, char last);

#else

// Without vectors nothing is passed over: the plain walk looks at every LF.
inline std::size_t placesWithout(const char*, std::size_t, std::size_t, char)
{
    return 0;
}

#endif

} // namespace tarvomime
