// SPDX-License-Identifier: MIT
#pragma once

#include "utility/codec/Stretch.h"

#include <cstddef>

/// The vectorised side of base64: each function takes the clean stretch at the start of its input
/// and leaves everything odd, and the last few bytes, to the plain walk in Base64.cpp. Nothing is
/// read behind `length` and nothing written behind `room`.
///
/// Without TARVOMIME_SIMD no stretch is ever taken.
namespace tarvomime {

#ifdef TARVOMIME_SIMD

/// Groups of 3 bytes, without line ends.
Stretch encodeBase64Run(const unsigned char* in, std::size_t length, char* out, std::size_t room);
/// Lines of 57 bytes, each with its CR LF.
Stretch encodeBase64Lines(const unsigned char* in, std::size_t length, char* out, std::size_t room);
/// Digits, four by four, up to the first byte that is none (a pad, a line end).
Stretch decodeBase64Run(const char* in, std::size_t length, char* out, std::size_t room);
/// Lines of 76 digits, all ended by CR LF or all by LF.
Stretch decodeBase64Lines(const char* in, std::size_t length, char* out, std::size_t room);

#else

inline Stretch encodeBase64Run(const unsigned char*, std::size_t, char*, std::size_t)
{
    return {};
}
inline Stretch encodeBase64Lines(const unsigned char*, std::size_t, char*, std::size_t)
{
    return {};
}
inline Stretch decodeBase64Run(const char*, std::size_t, char*, std::size_t)
{
    return {};
}
inline Stretch decodeBase64Lines(const char*, std::size_t, char*, std::size_t)
{
    return {};
}

#endif

} // namespace tarvomime
