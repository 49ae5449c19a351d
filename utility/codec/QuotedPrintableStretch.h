// SPDX-License-Identifier: MIT
#pragma once

#include "utility/codec/QuotedPrintableTables.h"
#include "utility/codec/Stretch.h"

#include <algorithm>
#include <cstddef>

/// The vectorised side of quoted-printable: each function takes what it can from the start of its
/// input and leaves the rest to the plain walk in QuotedPrintable.cpp. Nothing is read behind
/// `length` and nothing written behind `room`.
///
/// Without TARVOMIME_SIMD no stretch is ever taken.
namespace tarvomime {

#ifdef TARVOMIME_SIMD

/// How many bytes the encoder would escape.
std::size_t countQpEscapes(const char* in, std::size_t length);
/// Bytes and escapes, without line ends.
Stretch encodeQpRun(const char* in, std::size_t length, char* out, std::size_t room);
/// Whole lines from column 0 on, each with its soft break.
Stretch encodeQpLines(const char* in, std::size_t length, char* out, std::size_t room);
/// Bytes, escapes with two digits and soft line breaks, up to a NUL or the first other "=".
Stretch decodeQpRun(const char* in, std::size_t length, char* out, std::size_t room);

#else

inline std::size_t countQpEscapes(const char* in, std::size_t length)
{
    return static_cast<std::size_t>(std::count_if(
        in, in + length, [](char c) { return isQpEscaped(static_cast<unsigned char>(c)); }));
}
inline Stretch encodeQpRun(const char*, std::size_t, char*, std::size_t)
{
    return {};
}
inline Stretch encodeQpLines(const char*, std::size_t, char*, std::size_t)
{
    return {};
}
inline Stretch decodeQpRun(const char*, std::size_t, char*, std::size_t)
{
    return {};
}

#endif

} // namespace tarvomime
