// SPDX-License-Identifier: MIT
// Quoted-printable decoded by four vectors at a time on a 64-bit ARM, whose vectors have 16 bytes
// and no instruction that makes bits of their marks: what that takes is done once for all four.
// Included once for each kind of processor, hence the toggling guard.
#if defined(TARVOMIME_QUOTED_PRINTABLE_FOUR) == defined(HWY_TARGET_TOGGLE)
#ifdef TARVOMIME_QUOTED_PRINTABLE_FOUR
#undef TARVOMIME_QUOTED_PRINTABLE_FOUR
#else
#define TARVOMIME_QUOTED_PRINTABLE_FOUR
#endif

#include "utility/codec/QuotedPrintableUnits-inl.h"
#include "utility/codec/QuotedPrintableVectors-inl.h"
#include "utility/vectors/Neon-inl.h"
#include "utility/vectors/OneVector-inl.h"

#include <array>
#include <cstddef>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

#if HWY_ARCH_ARM_A64

constexpr std::size_t kFour = 4 * hn::MaxLanes(Block());

using Places = std::array<std::array<std::uint8_t, 8>, 256>;

/// For each set of bits: the places of the bytes to keep among the eight from `start` on.
constexpr Places makePlaces(std::uint8_t start)
{
    Places places{};
    for (std::size_t set = 0; set < places.size(); ++set) {
        for (std::size_t i = 0; i < 8; ++i)
            places[set][i] = static_cast<std::uint8_t>(kKept[set][i] + start);
    }
    return places;
}

constexpr Places kKeptLower = makePlaces(0);
constexpr Places kKeptUpper = makePlaces(8);

/// Stores the bytes whose bits are set in `kept`, side by side, and returns their count. Nothing is
/// stored further than 64 bytes from `out`.
HWY_INLINE std::size_t compactFour(const std::uint8_t* bytes, std::uint64_t kept, std::uint8_t* out)
{
    // How many stay of each eight bytes and of all before them: one sum in each byte.
    const std::uint64_t sums = bitCounts(kept) * 0x0101'0101'0101'0101;
    const std::uint64_t starts = sums << 8;
    for (std::size_t bit = 0; bit < kFour; bit += 16) {
        const auto vector = hn::LoadU(Block(), bytes + bit);
        const auto& lower = kKeptLower[kept >> bit & 0xFF];
        const auto& upper = kKeptUpper[kept >> (bit + 8) & 0xFF];
        storeEight(vector, lower.data(), out + (starts >> bit & 0xFF));
        storeEight(vector, upper.data(), out + (starts >> (bit + 8) & 0xFF));
    }
    return sums >> 56;
}

/// `front`, and behind it all of `bytes` but the last.
HWY_INLINE Bytes<Block> shiftIn(std::uint8_t front, Bytes<Block> bytes)
{
    return hn::CombineShiftRightBytes<15>(Block(), bytes, hn::Set(Block(), front));
}

HWY_INLINE ByteMask<Block> isEquals(Bytes<Block> bytes)
{
    return hn::Eq(bytes, hn::Set(Block(), '='));
}

/// Decodes one vector with all bytes in their places, and adds what is irregular in it to `odd`.
HWY_INLINE Bytes<Block> decodeInPlace(Bytes<Block> bytes, Bytes<Block> before,
                                      Bytes<Block> twoBefore, ByteMask<Block>& dropped,
                                      ByteMask<Block>& odd)
{
    const auto marks = markUnits(Block(), bytes, before, twoBefore);
    dropped = marks.dropped;
    odd = hn::Or(odd, marks.irregular);
    return hn::IfThenElse(marks.escapeEnds, marks.values, bytes);
}

/// Decodes 64 bytes, which have two more of the text in front. False, and `out` stays where it is,
/// when something in them is odd: irregular, or a NUL.
HWY_INLINE bool decodeFour(const std::uint8_t* in, std::uint8_t*& out)
{
    const Block d;
    // Dealt to the vectors in turn: in front of the bytes of one stand those of the one before.
    Bytes<Block> b0, b1, b2, b3;
    hn::LoadInterleaved4(d, in, b0, b1, b2, b3);
    const auto before = shiftIn(in[-1], b3);
    const auto twoBefore = shiftIn(in[-2], b2);

    auto odd = hn::Eq(hn::Min(hn::Min(b0, b1), hn::Min(b2, b3)), hn::Zero(d));
    const auto inside =
        hn::Or(hn::Or(isEquals(b0), isEquals(b1)), hn::Or(isEquals(b2), isEquals(b3)));
    const auto inFront = hn::Or(isEquals(before), isEquals(twoBefore));
    // Most of a Western text.
    if (hn::AllFalse(d, hn::Or(odd, hn::Or(inside, inFront)))) {
        hn::StoreInterleaved4(b0, b1, b2, b3, d, out);
        out += kFour;
        return true;
    }

    ByteMask<Block> dropped0, dropped1, dropped2, dropped3;
    const auto decoded0 = decodeInPlace(b0, before, twoBefore, dropped0, odd);
    const auto decoded1 = decodeInPlace(b1, b0, before, dropped1, odd);
    const auto decoded2 = decodeInPlace(b2, b1, b0, dropped2, odd);
    const auto decoded3 = decodeInPlace(b3, b2, b1, dropped3, odd);
    std::uint8_t decoded[kFour];
    hn::StoreInterleaved4(decoded0, decoded1, decoded2, decoded3, d, decoded);
    const std::uint64_t kept = ~bitsOfFour(dropped0, dropped1, dropped2, dropped3);
    const std::size_t count = compactFour(decoded, kept, out);
    // Asked last: until the answer is there, everything would wait in registers, which are too few.
    if (!hn::AllFalse(d, odd))
        return false;
    out += count;
    return true;
}

/// Decodes up to `limit` bytes by 64 and returns how many were taken: all that make whole ones, or
/// up to those with something odd.
HWY_INLINE std::size_t decodeFours(const std::uint8_t* in, std::size_t limit, std::uint8_t*& out)
{
    const std::uint8_t* next = in;
    const std::uint8_t* const last = in + limit / kFour * kFour;
    while (next != last && decodeFour(next, out))
        next += kFour;
    return static_cast<std::size_t>(next - in);
}

#else

/// Elsewhere all is decoded vector by vector, whose marks are bits by one instruction.
HWY_INLINE std::size_t decodeFours(const std::uint8_t*, std::size_t, std::uint8_t*&)
{
    return 0;
}

#endif

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#endif
