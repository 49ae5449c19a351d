// SPDX-License-Identifier: MIT
#include "utility/codec/Base64Stretch.h"
#include "utility/codec/Base64Tables.h"
#include "utility/vectors/Forms.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

// This file is compiled once for each kind of processor; the best one is chosen at run time.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "utility/codec/Base64Simd.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#if TARVOMIME_HAS_VECTORS

#include "utility/codec/Base64Vectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

constexpr std::size_t kBytesInLine = 57;
constexpr std::size_t kDigitsInLine = 76;
// How far the wide loads of one line reach: the last one starts 3/4 of its length before byte 48.
constexpr std::size_t kWideReach = 48 + hn::MaxLanes(Wide()) / 4;

// One vector of input that holds whole groups at its start: 3/4 of it becomes a vector of digits.
template <class D>
HWY_INLINE void encodeVector(D d, const std::uint8_t* in, std::uint8_t* out)
{
    hn::StoreU(digitsFromSextets(d, splitGroups(d, hn::LoadU(d, in))), d, out);
}

// A vector of digits becomes 3/4 of a vector of bytes; the rest of the store is to be overwritten.
template <class D, class Errors>
HWY_INLINE void decodeVector(D d, const std::uint8_t* in, std::uint8_t* out, Errors& errors)
{
    const auto sextets = sextetsFromDigits(d, hn::LoadU(d, in), errors);
    hn::StoreU(joinGroups(d, sextets), d, out);
}

template <class D>
HWY_INLINE void encodeLine(D d, const std::uint8_t* in, std::uint8_t* out)
{
    constexpr std::size_t kVector = hn::MaxLanes(D());
    for (std::size_t digit = 0; digit < 64; digit += kVector)
        encodeVector(d, in + digit / 4 * 3, out + digit);
    // The last 12 bytes lie at the end of their vector, so that nothing behind the line is read.
    const Block block;
    const auto groups = splitLastGroups(block, hn::LoadU(block, in + kBytesInLine - 16));
    hn::StoreU(digitsFromSextets(block, groups), block, out + kDigitsInLine - 16);
    out[kDigitsInLine] = '\r';
    out[kDigitsInLine + 1] = '\n';
}

Stretch encodeLines(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room)
{
    const Wide wide;
    const std::size_t lines = std::min(length / kBytesInLine, room / (kDigitsInLine + 2));
    std::size_t line = 0;
    // A wide load at a line's start may reach past its end, into the next line.
    for (; line < lines && length - line * kBytesInLine >= kWideReach; ++line)
        encodeLine(wide, in + line * kBytesInLine, out + line * (kDigitsInLine + 2));
    for (; line < lines; ++line)
        encodeLine(Block(), in + line * kBytesInLine, out + line * (kDigitsInLine + 2));
    return {lines * kBytesInLine, lines * (kDigitsInLine + 2)};
}

// Takes as many whole vectors as input and room allow.
template <class D>
HWY_INLINE void encodeVectors(D d, const std::uint8_t* in, std::size_t length, std::uint8_t* out,
                              std::size_t room, Stretch& done)
{
    constexpr std::size_t kVector = hn::MaxLanes(D());
    while (length - done.read >= kVector && room - done.written >= kVector) {
        encodeVector(d, in + done.read, out + done.written);
        done.read += kVector / 4 * 3;
        done.written += kVector;
    }
}

Stretch encodeRun(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room)
{
    Stretch done;
    encodeVectors(Wide(), in, length, out, room, done);
    encodeVectors(Block(), in, length, out, room, done);
    return done;
}

// The 16 bytes at `in`, at `in + stride`, ..., side by side.
template <class D>
HWY_INLINE Bytes<D> loadBlocks(D d, const std::uint8_t* in, std::size_t stride)
{
    if constexpr (hn::MaxLanes(D()) == 16) {
        return hn::LoadU(d, in);
    } else {
        const hn::Half<D> half;
        const std::size_t blocks = hn::MaxLanes(half) / 16;
        return hn::Combine(d, loadBlocks(half, in + blocks * stride, stride),
                           loadBlocks(half, in, stride));
    }
}

template <std::size_t kLineEnd>
HWY_INLINE bool isLineEnd(const std::uint8_t* in)
{
    return std::memcmp(in, kLineEnd == 1 ? "\n" : "\r\n", kLineEnd) == 0;
}

// Decodes as many lines as a vector has blocks; whether all were regular is told at the end only.
// The last 12 digits of all lines are decoded at one go: with a step of its own for each line, the
// whole takes 18 to 60 % longer.
template <std::size_t kLineEnd, class D>
HWY_INLINE bool decodeBatch(D d, const std::uint8_t* in, std::uint8_t* out)
{
    auto errors = hn::Zero(d);
    // The 4 digits before them give the same 3 bytes again.
    const auto lastDigits = loadBlocks(d, in + kDigitsInLine - 16, kDigitsInLine + kLineEnd);
    alignas(64) std::uint8_t lasts[hn::MaxLanes(D())];
    hn::Store(joinBlocks(d, sextetsFromDigits(d, lastDigits, errors)), d, lasts);
    bool linesEnd = true;
    // Line by line: each store ends in bytes that the next one overwrites.
    for (std::size_t block = 0; block < hn::MaxLanes(D()); block += 16) {
        for (std::size_t digit = 0; digit < 64; digit += hn::MaxLanes(D()))
            decodeVector(d, in + digit, out + digit / 4 * 3, errors);
        hn::StoreU(hn::Load(Block(), lasts + block), Block(), out + kBytesInLine - 12);
        linesEnd &= isLineEnd<kLineEnd>(in + kDigitsInLine);
        in += kDigitsInLine + kLineEnd;
        out += kBytesInLine;
    }
    return linesEnd && isClean(d, errors);
}

// Returns the number of lines taken.
template <std::size_t kLineEnd, class D>
HWY_INLINE std::size_t decodeBatches(D d, const std::uint8_t* in, std::size_t lines,
                                     std::uint8_t* out)
{
    constexpr std::size_t kBatch = hn::MaxLanes(D()) / 16;
    std::size_t done = 0;
    while (
        lines - done >= kBatch &&
        decodeBatch<kLineEnd>(d, in + done * (kDigitsInLine + kLineEnd), out + done * kBytesInLine))
        done += kBatch;
    return done;
}

template <std::size_t kLineEnd>
HWY_INLINE Stretch decodeEqualLines(const std::uint8_t* in, std::size_t length, std::uint8_t* out,
                                    std::size_t room)
{
    // The stores of a line reach this far past it, into the room of the next.
    constexpr std::size_t kReach = 64 - kBytesInLine;
    constexpr std::size_t kLine = kDigitsInLine + kLineEnd;
    const std::size_t lines =
        room < kReach ? 0 : std::min(length / kLine, (room - kReach) / kBytesInLine);
    std::size_t done = decodeBatches<kLineEnd>(Wide(), in, lines, out);
    done += decodeBatches<kLineEnd>(Block(), in + done * kLine, lines - done,
                                    out + done * kBytesInLine);
    return {done * kLine, done * kBytesInLine};
}

Stretch decodeLines(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room)
{
    if (length <= kDigitsInLine)
        return {};
    if (in[kDigitsInLine] == '\n')
        return decodeEqualLines<1>(in, length, out, room);
    return in[kDigitsInLine] == '\r' ? decodeEqualLines<2>(in, length, out, room) : Stretch();
}

template <std::size_t kVectors, class D>
HWY_INLINE void decodeVectors(D d, const std::uint8_t* in, std::size_t length, std::uint8_t* out,
                              std::size_t room, Stretch& done)
{
    constexpr std::size_t kVector = hn::MaxLanes(D());
    constexpr std::size_t kDigits = kVectors * kVector;
    while (length - done.read >= kDigits && room - done.written >= kDigits) {
        auto errors = hn::Zero(d);
        for (std::size_t digit = 0; digit < kDigits; digit += kVector) {
            decodeVector(d, in + done.read + digit, out + done.written + digit / 4 * 3, errors);
        }
        if (!isClean(d, errors))
            return;
        done.read += kDigits;
        done.written += kDigits / 4 * 3;
    }
}

Stretch decodeRun(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room)
{
    Stretch done;
    decodeVectors<4>(Wide(), in, length, out, room, done);
    decodeVectors<1>(Wide(), in, length, out, room, done);
    decodeVectors<1>(Block(), in, length, out, room, done);
    return done;
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE
namespace tarvomime {

TARVOMIME_DEFINE_STRETCH(encodeBase64Run, encodeRun)
TARVOMIME_DEFINE_STRETCH(encodeBase64Lines, encodeLines)
TARVOMIME_DEFINE_STRETCH(decodeBase64Run, decodeRun)
TARVOMIME_DEFINE_STRETCH(decodeBase64Lines, decodeLines)

} // namespace tarvomime
#endif
