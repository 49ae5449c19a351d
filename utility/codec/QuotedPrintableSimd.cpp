// SPDX-License-Identifier: MIT
#include "utility/codec/QuotedPrintableStretch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

// This file is compiled once for each kind of processor; the best one is chosen at run time.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "utility/codec/QuotedPrintableSimd.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#if HWY_TARGET != HWY_SCALAR
#include "utility/codec/QuotedPrintableVectors-inl.h"
#endif

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

#if HWY_TARGET == HWY_SCALAR

// A processor without vectors leaves all to the plain walk.
std::size_t countEscapes(const std::uint8_t* in, std::size_t length)
{
    return static_cast<std::size_t>(std::count_if(in, in + length, isQpEscaped));
}
Stretch encodeRun(const std::uint8_t*, std::size_t, std::uint8_t*, std::size_t)
{
    return {};
}
Stretch encodeLines(const std::uint8_t*, std::size_t, std::uint8_t*, std::size_t)
{
    return {};
}
Stretch decodeRun(const std::uint8_t*, std::size_t, std::uint8_t*, std::size_t)
{
    return {};
}

#else

std::size_t countEscapes(const std::uint8_t* in, std::size_t length)
{
    const Wide d;
    constexpr std::size_t kVector = hn::MaxLanes(Wide());
    std::size_t count = 0;
    std::size_t done = 0;
    for (; length - done >= kVector; done += kVector)
        count += hn::CountTrue(d, isEscaped(d, hn::LoadU(d, in + done)));
    return count + static_cast<std::size_t>(std::count_if(in + done, in + length, isQpEscaped));
}

Stretch encodeRun(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room)
{
    // What one step may store.
    constexpr std::size_t kStored = 64;
    Stretch done;
    while (length - done.read >= kExpandedReach && room - done.written >= kStored) {
        done.written += expand(in + done.read, out + done.written);
        done.read += kExpanded;
    }
    return done;
}

// The encoder's columns: a line ends with the first unit (a byte, an escape) that passes the last
// column and is no CR.
constexpr std::size_t kShortestLine = kQpLastColumn + 1;
// The longest without a CR: its last unit is an escape that began in the last column.
constexpr std::size_t kLongestLine = kQpLastColumn + 3;
// A line is copied by whole vectors, its soft break put behind it.
constexpr std::size_t kCopied = 64 + 16;

bool isEscapedCr(const std::uint8_t* unit)
{
    return std::memcmp(unit, "=0D", 3) == 0;
}

// The end of the line that starts at `start`, or 0 when it may lie behind `length`.
std::size_t findLineEnd(const std::uint8_t* units, std::size_t start, std::size_t length)
{
    if (length - start < kLongestLine)
        return 0;
    // In encoded text "=" is always the start of an escape.
    std::size_t end = start + kShortestLine;
    // Added up, since no processor could guess which it is.
    end += (units[end - 1] == '=' ? 2U : 0U) + (units[end - 2] == '=' ? 1U : 0U);
    while (isEscapedCr(units + end - 3)) {
        if (length - end < 3)
            return 0;
        end += units[end] == '=' ? 3 : 1;
    }
    return end;
}

void copyLine(const std::uint8_t* line, std::size_t length, std::uint8_t* out)
{
    constexpr std::size_t kVector = hn::MaxLanes(Wide());
    for (std::size_t at = 0; at < 64; at += kVector)
        hn::StoreU(hn::LoadU(Wide(), line + at), Wide(), out + at);
    hn::StoreU(hn::LoadU(Block(), line + 64), Block(), out + 64);
    if (length > kCopied)
        std::memcpy(out + kCopied, line + kCopied, length - kCopied);
    std::memcpy(out + length, kQpSoftBreak.data(), kQpSoftBreak.size());
}

// Copies whole lines of encoded units and adds their soft breaks. At least kCopied bytes can be
// read from each unit on.
Stretch fold(const std::uint8_t* units, std::size_t length, std::uint8_t* out, std::size_t room)
{
    Stretch done;
    for (;;) {
        const std::size_t end = findLineEnd(units, done.read, length);
        const std::size_t line = end - done.read;
        if (end == 0 || room - done.written < std::max(line, kCopied) + kQpSoftBreak.size())
            return done;
        copyLine(units + done.read, line, out + done.written);
        done.written += line + kQpSoftBreak.size();
        done.read = end;
    }
}

// The number of bytes that these units stand for.
std::size_t unitsIn(const std::uint8_t* units, std::size_t length)
{
    return length - 2 * static_cast<std::size_t>(std::count(units, units + length, '='));
}

Stretch encodeLines(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room)
{
    // Encoded without breaks first, in a block that stays in the nearest cache.
    constexpr std::size_t kBlock = 2048;
    std::array<std::uint8_t, 3 * kBlock + kCopied> units;
    Stretch done;
    while (room - done.written >= kCopied + kQpSoftBreak.size()) {
        const Stretch encoded = encodeRun(in + done.read, std::min(length - done.read, kBlock),
                                          units.data(), units.size());
        const Stretch folded =
            fold(units.data(), encoded.written, out + done.written, room - done.written);
        if (folded.read == 0)
            break;
        // The begun line is encoded again with what follows it.
        done.read +=
            encoded.read - unitsIn(units.data() + folded.read, encoded.written - folded.read);
        done.written += folded.written;
    }
    return done;
}

// Decodes one vector; `pending` marks the bytes at its start that belong to an escape before it and
// is set for the next one. Returns how far the vector was taken: all of it, or up to a "=" that the
// plain walk has to look at.
template <class D>
HWY_INLINE std::size_t decodeVector(D d, const std::uint8_t* in, std::uint64_t& pending,
                                    std::uint8_t* out, std::size_t& written)
{
    constexpr std::size_t kVector = hn::MaxLanes(D());
    const auto bytes = hn::LoadU(d, in);
    const auto first = hn::LoadU(d, in + 1);
    const auto second = hn::LoadU(d, in + 2);
    const auto equals = hn::Eq(bytes, hn::Set(d, '='));
    const auto lineFeed = hn::Set(d, '\n');
    const auto firstDigit = hexDigits(d, first);
    const auto secondDigit = hexDigits(d, second);
    const std::uint64_t starts = bitsOf(d, equals);
    const std::uint64_t escapes = starts & bitsOf(d, hn::And(firstDigit.valid, secondDigit.valid));
    const std::uint64_t longBreaks =
        starts & bitsOf(d, hn::And(hn::Eq(first, hn::Set(d, '\r')), hn::Eq(second, lineFeed)));
    const std::uint64_t shortBreaks = starts & bitsOf(d, hn::Eq(first, lineFeed));

    const std::uint64_t tails = escapes | longBreaks;
    const std::uint64_t dropped =
        pending | tails << 1 | tails << 2 | longBreaks | shortBreaks | shortBreaks << 1;
    // The plain walk knows whether a NUL ends the text.
    const std::uint64_t odd =
        (starts & ~(tails | shortBreaks)) | bitsOf(d, hn::Eq(bytes, hn::Zero(d)));
    const std::size_t taken = odd == 0 ? kVector : static_cast<std::size_t>(std::countr_zero(odd));
    const std::uint64_t kept = ~dropped & lowBits(taken);

    const auto values = hn::Or(hn::ShiftLeft<4>(firstDigit.value), secondDigit.value);
    written += compact(d, hn::IfThenElse(equals, values, bytes), kept, out + written);
    pending = taken < kVector ? 0
                              : tails >> (kVector - 1) | tails >> (kVector - 1) << 1 |
                                    (tails >> (kVector - 2) & 1) | shortBreaks >> (kVector - 1);
    return taken;
}

Stretch decodeRun(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room)
{
    const Compacted d;
    constexpr std::size_t kVector = hn::MaxLanes(Compacted());
    Stretch done;
    std::uint64_t pending = 0;
    while (length - done.read >= kVector + 2 && room - done.written >= kVector + 16) {
        const std::size_t taken = decodeVector(d, in + done.read, pending, out, done.written);
        done.read += taken;
        if (taken < kVector)
            break;
    }
    done.read += static_cast<std::size_t>(std::popcount(pending));
    return done;
}

#endif

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tarvomime {

namespace {

HWY_EXPORT(countEscapes);
HWY_EXPORT(encodeRun);
HWY_EXPORT(encodeLines);
HWY_EXPORT(decodeRun);

const std::uint8_t* bytes(const char* text)
{
    return reinterpret_cast<const std::uint8_t*>(text);
}

std::uint8_t* bytes(char* text)
{
    return reinterpret_cast<std::uint8_t*>(text);
}

} // namespace

std::size_t countQpEscapes(const char* in, std::size_t length)
{
    return HWY_DYNAMIC_DISPATCH(countEscapes)(bytes(in), length);
}

Stretch encodeQpRun(const char* in, std::size_t length, char* out, std::size_t room)
{
    return HWY_DYNAMIC_DISPATCH(encodeRun)(bytes(in), length, bytes(out), room);
}

Stretch encodeQpLines(const char* in, std::size_t length, char* out, std::size_t room)
{
    return HWY_DYNAMIC_DISPATCH(encodeLines)(bytes(in), length, bytes(out), room);
}

Stretch decodeQpRun(const char* in, std::size_t length, char* out, std::size_t room)
{
    return HWY_DYNAMIC_DISPATCH(decodeRun)(bytes(in), length, bytes(out), room);
}

} // namespace tarvomime
#endif
