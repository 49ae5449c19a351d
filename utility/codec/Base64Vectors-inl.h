// SPDX-License-Identifier: MIT
// Base64 on one vector. Included once for each kind of processor, hence the toggling guard.
#if defined(TARVOMIME_BASE64_VECTORS) == defined(HWY_TARGET_TOGGLE)
#ifdef TARVOMIME_BASE64_VECTORS
#undef TARVOMIME_BASE64_VECTORS
#else
#define TARVOMIME_BASE64_VECTORS
#endif

#include "utility/codec/Base64Tables.h"
#include "utility/vectors/Avx512-inl.h"
#include "utility/vectors/Forms.h"
#include "utility/vectors/OneVector-inl.h"

#include <array>
#include <cstddef>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

/// Repeats 16 bytes in each block of a vector.
template <class D>
HWY_INLINE Bytes<D> everyBlock(D d, const std::uint8_t (&values)[16])
{
    return hn::LoadDup128(d, values);
}

// Bytes of one block:   a0 a1 a2 b0 b1 b2 c0 c1 c2 d0 d1 d2 .. .. .. ..
// after this shuffle:   a1 a0 a2 a1 b1 b0 b2 b1 c1 c0 c2 c1 d1 d0 d2 d1
// Each 32-bit lane then holds the group's 24 bits so that two multiplications move the four 6-bit
// pieces into their bytes.
alignas(16) constexpr std::uint8_t kSpread[16] = {1, 0, 2, 1, 4,  3, 5,  4,
                                                  7, 6, 8, 7, 10, 9, 11, 10};
// The same for groups at bytes 4 to 15.
alignas(16) constexpr std::uint8_t kSpreadLast[16] = {5,  4,  6,  5,  8,  7,  9,  8,
                                                      11, 10, 12, 11, 14, 13, 15, 14};

/// The sextets of the groups at the vector's start: 12 bytes of input for each block.
template <class D>
HWY_INLINE Bytes<D> splitGroups(D d, Bytes<D> bytes)
{
    if constexpr (hn::MaxLanes(D()) > 16) {
        // Three 32-bit lanes of input for each block of output.
        const hn::Repartition<std::uint32_t, D> d32;
        alignas(64) constexpr std::uint32_t kLanes[16] = {0, 1, 2, 3, 3, 4,  5,  6,
                                                          6, 7, 8, 9, 9, 10, 11, 12};
        bytes = hn::BitCast(
            d, hn::TableLookupLanes(hn::BitCast(d32, bytes), hn::SetTableIndices(d32, kLanes)));
    }
    return sextetsOf(d, hn::TableLookupBytes(bytes, everyBlock(d, kSpread)));
}

/// The sextets of the last 12 bytes of a block.
HWY_INLINE Bytes<Block> splitLastGroups(Block d, Bytes<Block> bytes)
{
    return sextetsOf(d, hn::TableLookupBytes(bytes, everyBlock(d, kSpreadLast)));
}

#if TARVOMIME_HAS_VBMI

/// The value of each byte below 0x80; 0x80 for what is no digit.
constexpr std::array<std::uint8_t, 128> makeSextets()
{
    std::array<std::uint8_t, 128> sextets{};
    for (std::size_t byte = 0; byte < sextets.size(); ++byte)
        sextets[byte] = kBase64Values[byte] < 64 ? kBase64Values[byte] : 0x80;
    return sextets;
}

alignas(64) constexpr std::array<std::uint8_t, 128> kSextets = makeSextets();

#else

/// Tables over the halves of a byte.
struct DigitSets
{
    std::uint8_t lower[16]{};
    std::uint8_t upper[16]{};
    /// From a digit to its value, by the upper half: the same for all digits there but "/".
    std::uint8_t distance[16]{};
};

/// The bit for an upper half. Halves share one where the digits have the same lower halves.
constexpr std::uint8_t digitSetBit(std::size_t upper)
{
    switch (upper) {
    case 0x2:
        return 0x01;
    case 0x3:
        return 0x02;
    case 0x4:
    case 0x6:
        return 0x04;
    case 0x5:
    case 0x7:
        return 0x08;
    default:
        return 0x10;
    }
}

constexpr DigitSets makeDigitSets()
{
    DigitSets sets;
    for (std::size_t byte = 0; byte < 256; ++byte) {
        const std::size_t upper = byte / 16;
        sets.upper[upper] = digitSetBit(upper);
        // The table's zeros behind its end are values without being digits.
        const bool isDigit = byte < 128 && kBase64Values[byte] < 64;
        if (!isDigit)
            sets.lower[byte % 16] |= digitSetBit(upper);
        else
            sets.distance[byte == '/' ? upper - 1 : upper] =
                static_cast<std::uint8_t>(kBase64Values[byte] - byte);
    }
    return sets;
}

alignas(16) constexpr DigitSets kDigitSets = makeDigitSets();

#endif

template <class D>
HWY_INLINE Bytes<D> digitsFromSextets(D d, Bytes<D> sextets)
{
#if TARVOMIME_HAS_VBMI
    return lookUp64(d, hn::LoadU(Wide(), rawBytes(kBase64Digits.data())), sextets);
#else
    // The distance from a sextet to its digit is the same within "A-Z", "a-z" and "0-9": 26 to 51
    // go to entry 0, 52 to 63 to entries 1 to 12, 0 to 25 to entry 13.
    alignas(16) constexpr std::uint8_t kDistances[16] = {'a' - 26,
                                                         '0' - 52 + 256,
                                                         '0' - 52 + 256,
                                                         '0' - 52 + 256,
                                                         '0' - 52 + 256,
                                                         '0' - 52 + 256,
                                                         '0' - 52 + 256,
                                                         '0' - 52 + 256,
                                                         '0' - 52 + 256,
                                                         '0' - 52 + 256,
                                                         '0' - 52 + 256,
                                                         '+' - 62 + 256,
                                                         '/' - 63 + 256,
                                                         'A',
                                                         0,
                                                         0};
    const auto isUpper = hn::VecFromMask(d, hn::Lt(sextets, hn::Set(d, 26)));
    const auto entry =
        hn::Or(hn::SaturatedSub(sextets, hn::Set(d, 51)), hn::And(isUpper, hn::Set(d, 13)));
    return hn::Add(sextets, hn::TableLookupBytes(everyBlock(d, kDistances), entry));
#endif
}

/// The digits' values; marks in `errors` what is no digit.
template <class D>
HWY_INLINE Bytes<D> sextetsFromDigits(D d, Bytes<D> digits, Bytes<D>& errors)
{
#if TARVOMIME_HAS_VBMI
    const auto values = lookUp128(d, kSextets, digits);
    // Bytes from 0x80 on have found the entry of another byte.
    errors = hn::Or3(errors, values, digits);
    return values;
#else
    // A byte is a digit when the sets for its two halves have no bit in common.
    const auto half = hn::Set(d, 0x0F);
    const auto upper = hn::ShiftRight<4>(digits);
    const auto lower = hn::And(digits, half);
    errors = hn::Or(errors, hn::And(hn::TableLookupBytes(everyBlock(d, kDigitSets.lower), lower),
                                    hn::TableLookupBytes(everyBlock(d, kDigitSets.upper), upper)));
    const auto isSlash = hn::VecFromMask(d, hn::Eq(digits, hn::Set(d, '/')));
    // "/" shares its upper half with "+" and goes to the entry before: all ones are -1.
    return hn::Add(
        digits, hn::TableLookupBytes(everyBlock(d, kDigitSets.distance), hn::Add(upper, isSlash)));
#endif
}

/// Whether nothing was marked.
template <class D>
HWY_INLINE bool isClean(D d, Bytes<D> errors)
{
#if TARVOMIME_HAS_VBMI
    return hn::AllFalse(d, hn::TestBit(errors, hn::Set(d, 0x80)));
#else
    return hn::AllTrue(d, hn::Eq(errors, hn::Zero(d)));
#endif
}

/// Where the bytes of a vector's groups come from: the lower three of each 32-bit lane, highest
/// first.
constexpr std::array<std::uint8_t, 64> makeByteOrder()
{
    std::array<std::uint8_t, 64> order{};
    for (std::size_t byte = 0; byte < 48; ++byte)
        order[byte] = static_cast<std::uint8_t>(byte / 3 * 4 + 2 - byte % 3);
    return order;
}

/// The first three lanes of each block.
template <std::size_t kLanes>
constexpr std::array<std::uint32_t, kLanes> makeFirstLanes()
{
    std::array<std::uint32_t, kLanes> lanes{};
    for (std::uint32_t lane = 0; lane < kLanes / 4 * 3; ++lane)
        lanes[lane] = lane / 3 * 4 + lane % 3;
    return lanes;
}

alignas(64) constexpr std::array<std::uint8_t, 64> kByteOrder = makeByteOrder();
template <std::size_t kLanes>
alignas(64) constexpr std::array<std::uint32_t, kLanes> kFirstLanes = makeFirstLanes<kLanes>();

/// The bytes that the sextets stand for: 12 at the start of each block.
template <class D>
HWY_INLINE Bytes<D> joinBlocks(D d, Bytes<D> sextets)
{
    return hn::TableLookupBytes(bitsOfGroups(d, sextets), hn::LoadDup128(d, kByteOrder.data()));
}

/// The same, all at the start of the vector.
template <class D>
HWY_INLINE Bytes<D> joinGroups(D d, Bytes<D> sextets)
{
#if TARVOMIME_HAS_VBMI
    if constexpr (hn::MaxLanes(D()) == 64)
        return lookUp64(d, bitsOfGroups(d, sextets), hn::Load(d, kByteOrder.data()));
#endif
    if constexpr (hn::MaxLanes(D()) == 16) {
        return joinBlocks(d, sextets);
    } else {
        const hn::Repartition<std::uint32_t, D> d32;
        const auto lanes = hn::SetTableIndices(d32, kFirstLanes<hn::MaxLanes(d32)>.data());
        return hn::BitCast(d,
                           hn::TableLookupLanes(hn::BitCast(d32, joinBlocks(d, sextets)), lanes));
    }
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#endif
