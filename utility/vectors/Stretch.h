// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace tarvomime {

/// What a vectorised path has taken of its input, and what became of it, in bytes.
struct Stretch
{
    std::size_t read = 0;
    std::size_t written = 0;
};

} // namespace tarvomime

/// Declares a vectorised function: it takes what it can from the start of its input and leaves the
/// rest to the plain walk. Nothing is read behind `length` and nothing written behind `room`.
/// Without TARVOMIME_SIMD no stretch is ever taken.
#ifdef TARVOMIME_SIMD
#define TARVOMIME_STRETCH(name)                                                                    \
    Stretch name(const char* in, std::size_t length, char* out, std::size_t room)
#else
#define TARVOMIME_STRETCH(name)                                                                    \
    inline Stretch name(const char*, std::size_t, char*, std::size_t)                              \
    {                                                                                              \
        return {};                                                                                 \
    }                                                                                              \
    static_assert(true)
#endif
