// SPDX-License-Identifier: MIT
#include "utility/codec/QuotedPrintableStretch.h"
#include "utility/vectors/Forms.h"

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

#if TARVOMIME_HAS_VECTORS

#include "utility/codec/QuotedPrintableFour-inl.h"
#include "utility/codec/QuotedPrintableUnits-inl.h"
#include "utility/codec/QuotedPrintableVectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

constexpr std::size_t kVector = hn::MaxLanes(Wide());

std::size_t countEscapes(const std::uint8_t* in, std::size_t length)
{
    const Wide d;
    std::size_t count = 0;
    std::size_t done = 0;
    for (; length - done >= kVector; done += kVector)
        count += hn::CountTrue(d, isEscaped(d, hn::LoadU(d, in + done)));
    return count + countQpEscapesPlainly(in + done, length - done);
}

// What a step of the encoder may store.
constexpr std::size_t kStored = 64;

Stretch encodeRun(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room)
{
    Stretch done;
    while (length - done.read >= std::size_t{kExpandedReach} && room - done.written >= kStored) {
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

// Lines are made in two steps: bytes become units in a block that stays in the nearest cache, and
// the units become lines. These wait to be folded.
struct Units
{
    std::uint8_t* begin;
    std::uint8_t* end;

    std::size_t length() const { return static_cast<std::size_t>(end - begin); }
    // The number of bytes that they stand for.
    std::size_t bytes() const
    {
        return length() - 2 * static_cast<std::size_t>(std::count(begin, end, '='));
    }
};

// Characters for each block, up to a step of the encoder more. Two blocks, what they are made from
// and what becomes of them lie in the nearest cache, which has 32 KiB or more. The first block is
// made while none is folded and the last one folded while none is made: with blocks six times the
// size 1 KiB of text takes a tenth longer, with those of half the size 64 KiB do.
constexpr std::size_t kBlock = 1024;
// Units that the block before has left, a begun line, are put in front.
constexpr std::size_t kFront = 128;

struct UnitBlock
{
    std::array<std::uint8_t, kFront + kBlock + kStored + kCopied> text;

    Units none() { return {text.data() + kFront, text.data() + kFront}; }
};

bool isEscapedCr(const std::uint8_t* unit)
{
    return std::memcmp(unit, "=0D", 3) == 0;
}

// The end of the first line, or null when it may lie behind the last unit.
HWY_INLINE std::uint8_t* findLineEnd(const Units& units)
{
    if (units.length() < kLongestLine)
        return nullptr;
    // In encoded text "=" is always the start of an escape.
    std::uint8_t* end = units.begin + kShortestLine;
    // Added up, since no processor could guess which it is.
    end += (end[-1] == '=' ? 2 : 0) + (end[-2] == '=' ? 1 : 0);
    while (isEscapedCr(end - 3)) {
        if (units.end - end < 3)
            return nullptr;
        end += *end == '=' ? 3 : 1;
    }
    return end;
}

HWY_INLINE void copyLine(const std::uint8_t* line, std::size_t length, std::uint8_t* out)
{
    for (std::size_t at = 0; at < 64; at += kVector)
        hn::StoreU(hn::LoadU(Wide(), line + at), Wide(), out + at);
    hn::StoreU(hn::LoadU(Block(), line + 64), Block(), out + 64);
    if (length > kCopied)
        std::memcpy(out + kCopied, line + kCopied, length - kCopied);
    std::memcpy(out + length, kQpSoftBreak.data(), kQpSoftBreak.size());
}

// Copies the first line with its soft break behind it, if all of it is there and has room.
HWY_INLINE bool foldLine(Units& units, std::uint8_t*& out, const std::uint8_t* limit)
{
    std::uint8_t* const end = findLineEnd(units);
    if (end == nullptr)
        return false;
    const auto length = static_cast<std::size_t>(end - units.begin);
    if (static_cast<std::size_t>(limit - out) < std::max(length, kCopied) + kQpSoftBreak.size())
        return false;
    copyLine(units.begin, length, out);
    out += length + kQpSoftBreak.size();
    units.begin = end;
    return true;
}

Stretch encodeLines(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room)
{
    const std::uint8_t* next = in;
    const std::uint8_t* const inLimit = in + length;
    std::uint8_t* line = out;
    const std::uint8_t* const outLimit = out + room;
    UnitBlock blocks[2];
    Units folding = blocks[0].none();
    for (std::size_t block = 1;; block ^= 1) {
        // No more than there can be room for.
        const auto left = static_cast<std::size_t>(outLimit - line);
        Units encoding = blocks[block].none();
        const std::uint8_t* const unitLimit =
            encoding.end + std::min(left - std::min(left, folding.length()), kBlock);
        // Neither waits for the other: side by side, the processor does both at once. One after the
        // other, with one block, takes 12 to 43 % longer with AVX-512.
        bool isFolding = true;
        while (inLimit - next >= kExpandedReach && encoding.end < unitLimit) {
            encoding.end += expand(next, encoding.end);
            next += kExpanded;
            isFolding = isFolding && foldLine(folding, line, outLimit);
        }
        while (foldLine(folding, line, outLimit)) {
        }
        if (encoding.length() == 0 || folding.length() > kFront)
            return {static_cast<std::size_t>(next - in) - folding.bytes() - encoding.bytes(),
                    static_cast<std::size_t>(line - out)};
        encoding.begin -= folding.length();
        std::copy(folding.begin, folding.end, encoding.begin);
        folding = encoding;
    }
}

// Whether no unit begins here, and no NUL stands here.
HWY_INLINE bool isPlain(Bytes<Wide> bytes)
{
    const Wide d;
    return hn::AllFalse(d, hn::Or(hn::Eq(bytes, hn::Set(d, '=')), hn::Eq(bytes, hn::Zero(d))));
}

// What `compact` stores.
constexpr std::size_t kDecodedRoom = kVector + 16;

// Takes the vectors in which no unit begins, of a text in front of which none has begun.
Stretch decodePlain(const std::uint8_t* in, std::size_t limit, std::uint8_t* out)
{
    const Wide d;
    std::size_t done = 0;
    for (; limit - done >= kVector; done += kVector) {
        const auto bytes = hn::LoadU(d, in + done);
        if (!isPlain(bytes))
            break;
        hn::StoreU(bytes, d, out + done);
    }
    return {done, done};
}

// Decodes the vector at `in`, which has two bytes of the text in front, or any but "="; if it is
// plain, those that are plain behind it too, up to `limit`. Returns how many bytes were taken:
// fewer than a vector's up to something odd, which is irregular or a NUL, of which the plain walk
// knows whether it ends the text.
HWY_INLINE std::size_t decodeVector(const std::uint8_t* in, std::size_t limit, std::uint8_t*& out)
{
    const Wide d;
    const auto bytes = hn::LoadU(d, in);
    // Most of a Western text. What ends here without beginning here began in the two bytes in
    // front, which need no vectors of their own.
    if (isPlain(bytes) && in[-1] != '=' && in[-2] != '=') {
        const Stretch plain = decodePlain(in, limit, out);
        out += plain.written;
        return plain.read;
    }
    const auto before = hn::LoadU(d, in - 1);
    const auto twoBefore = hn::LoadU(d, in - 2);
    const UnitMarks<Wide> marks = markUnits(d, bytes, before, twoBefore);
    const auto odd = hn::Or(hn::Eq(bytes, hn::Zero(d)), marks.irregular);
    const std::size_t taken =
        hn::AllFalse(d, odd) ? kVector : static_cast<std::size_t>(hn::FindFirstTrue(d, odd));
    const auto decoded = hn::IfThenElse(marks.escapeEnds, marks.values, bytes);
    out += compact(d, decoded, ~bitsOf(d, marks.dropped) & lowBits(taken), out);
    return taken;
}

// How many of the last bytes in front of `end` belong to a unit that ends behind them.
std::size_t begunUnit(const std::uint8_t* in, std::size_t end)
{
    if (end >= 2 && in[end - 2] == '=' && in[end - 1] != '\n')
        return 2;
    return end >= 1 && in[end - 1] == '=' ? 1 : 0;
}

// Goes on vector by vector.
HWY_INLINE void decodeVectors(const std::uint8_t* in, std::size_t length, std::uint8_t* out,
                              std::size_t room, Stretch& done)
{
    std::size_t read = done.read;
    std::uint8_t* next = out + done.written;
    const auto roomLeft = [&] { return room - static_cast<std::size_t>(next - out); };
    const auto limit = [&] { return std::min(length - read, roomLeft()); };
    const std::uint8_t* from = in + read;
    // Nothing stands in front of the text.
    std::uint8_t first[2 + kVector];
    if (read == 0 && length >= kVector) {
        first[0] = first[1] = 0;
        std::memcpy(first + 2, in, kVector);
        from = first + 2;
    }
    std::size_t taken = kVector;
    while (taken >= kVector && length - read >= kVector && roomLeft() >= kDecodedRoom) {
        taken = decodeVector(from, limit(), next);
        read += taken;
        if (taken >= kVector)
            read += decodeFours(in + read, limit(), next);
        from = in + read;
    }
    done = {read, static_cast<std::size_t>(next - out)};
}

// Goes on with a vector's length at most, and neither reads nor stores outside.
void decodeLast(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room,
                Stretch& done)
{
    const std::size_t left = std::min({length - done.read, room - done.written, kVector});
    // The plain walk is quicker for fewer.
    if (left < 16)
        return;
    const std::size_t front = std::min<std::size_t>(done.read, 2);
    // The NULs behind are odd, so that no more is taken.
    std::uint8_t text[2 + kVector] = {};
    std::memcpy(text + 2 - front, in + done.read - front, front + left);
    std::uint8_t decoded[kDecodedRoom];
    std::uint8_t* end = decoded;
    done.read += decodeVector(text + 2, kVector, end);
    std::copy(decoded, end, out + done.written);
    done.written += static_cast<std::size_t>(end - decoded);
}

Stretch decodeRun(const std::uint8_t* in, std::size_t length, std::uint8_t* out, std::size_t room)
{
    Stretch done = decodePlain(in, std::min(length, room), out);
    decodeVectors(in, length, out, room, done);
    decodeLast(in, length, out, room, done);
    done.read -= begunUnit(in, done.read);
    return done;
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE
namespace tarvomime {

TARVOMIME_DEFINE_STRETCH(encodeQpRun, encodeRun)
TARVOMIME_DEFINE_STRETCH(encodeQpLines, encodeLines)
TARVOMIME_DEFINE_STRETCH(decodeQpRun, decodeRun)

std::size_t countQpEscapes(const char* in, std::size_t length)
{
    using Function = std::size_t(const std::uint8_t*, std::size_t);
    static constexpr Forms<Function> kForms =
        TARVOMIME_FORMS(countEscapes, countQpEscapesPlainly<std::uint8_t>);
    return formHere(kForms)(rawBytes(in), length);
}

} // namespace tarvomime
#endif
