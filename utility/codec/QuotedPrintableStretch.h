// SPDX-License-Identifier: MIT
#pragma once

#include "utility/codec/QuotedPrintableTables.h"
#include "utility/vectors/Stretch.h"

#include <algorithm>
#include <cstddef>

/// The vectorised side of quoted-printable; the plain walk is in QuotedPrintable.cpp.
namespace tarvomime {

/// Bytes and escapes, without line ends.
TARVOMIME_STRETCH(encodeQpRun);
/// Whole lines from column 0 on, each with its soft break.
TARVOMIME_STRETCH(encodeQpLines);
/// Bytes, escapes with two digits and soft line breaks, up to a NUL or the first other "=".
TARVOMIME_STRETCH(decodeQpRun);

/// How many bytes the encoder would escape, counted plainly.
template <class Byte>
std::size_t countQpEscapesPlainly(const Byte* in, std::size_t length)
{
    return static_cast<std::size_t>(std::count_if(
        in, in + length, [](Byte byte) { return isQpEscaped(static_cast<unsigned char>(byte)); }));
}

#ifdef TARVOMIME_SIMD
std::size_t countQpEscapes(const char* in, std::size_t length);
#else
inline std::size_t countQpEscapes(const char* in, std::size_t length)
{
    return countQpEscapesPlainly(in, length);
}
#endif

} // namespace tarvomime
