// SPDX-License-Identifier: MIT
// Escapes and soft line breaks on one vector. Included once for each kind of processor, hence the
// toggling guard.
#if defined(TARVOMIME_QUOTED_PRINTABLE_UNITS) == defined(HWY_TARGET_TOGGLE)
#ifdef TARVOMIME_QUOTED_PRINTABLE_UNITS
#undef TARVOMIME_QUOTED_PRINTABLE_UNITS
#else
#define TARVOMIME_QUOTED_PRINTABLE_UNITS
#endif

#include "utility/codec/QuotedPrintableTables.h"
#include "utility/vectors/Avx512-inl.h"
#include "utility/vectors/Neon-inl.h"
#include "utility/vectors/OneVector-inl.h"

#include <array>
#include <cstddef>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

/// What two hexadecimal digits of either case stand for, and where both are digits.
template <class D>
struct HexPair
{
    Bytes<D> value;
    ByteMask<D> valid;
};

#if TARVOMIME_HAS_VBMI

/// The value of each byte below 0x80; 0x80 for what is no digit.
constexpr std::array<std::uint8_t, 128> makeNibbles()
{
    std::array<std::uint8_t, 128> nibbles{};
    for (std::size_t byte = 0; byte < nibbles.size(); ++byte)
        nibbles[byte] = kQpHexValues[byte] < 16 ? kQpHexValues[byte] : 0x80;
    return nibbles;
}

alignas(64) constexpr std::array<std::uint8_t, 128> kNibbles = makeNibbles();

template <class D>
HWY_INLINE HexPair<D> hexPair(D d, Bytes<D> first, Bytes<D> second)
{
    const auto high = lookUp128(d, kNibbles, first);
    const auto low = lookUp128(d, kNibbles, second);
    // Bytes from 0x80 on have found the entry of another byte.
    const auto marks = hn::Or3(hn::Or(high, low), first, second);
    return {hn::Or(hn::ShiftLeft<4>(high), low), hn::Lt(marks, hn::Set(d, 0x80))};
}

#elif HWY_ARCH_ARM_A64

/// Marks a digit's value in the table.
constexpr std::uint8_t kIsDigit = 0x80;

/// The digits among the 64 bytes from "0" on.
constexpr std::array<std::uint8_t, 64> makeNibbles()
{
    std::array<std::uint8_t, 64> nibbles{};
    for (std::size_t i = 0; i < nibbles.size(); ++i) {
        const std::uint8_t value = kQpHexValues['0' + i];
        nibbles[i] = value < 16 ? static_cast<std::uint8_t>(kIsDigit | value) : 0;
    }
    return nibbles;
}

alignas(64) constexpr std::array<std::uint8_t, 64> kNibbles = makeNibbles();

HWY_INLINE HexPair<Block> hexPair(Block d, Bytes<Block> first, Bytes<Block> second)
{
    const auto zero = hn::Set(d, '0');
    const auto high = lookUp64OrZero(kNibbles, hn::Sub(first, zero));
    const auto low = lookUp64OrZero(kNibbles, hn::Sub(second, zero));
    const auto marks = hn::BitCast(hn::RebindToSigned<Block>(), hn::And(high, low));
    return {joinNibbles(high, low), hn::MaskFromVec(hn::BitCast(d, hn::BroadcastSignBit(marks)))};
}

#else

template <class D>
HWY_INLINE HexPair<D> hexDigit(D d, Bytes<D> bytes)
{
    const auto number = hn::Sub(bytes, hn::Set(d, '0'));
    const auto letter = hn::Sub(hn::Or(bytes, hn::Set(d, 0x20)), hn::Set(d, 'a'));
    const auto isNumber = hn::Lt(number, hn::Set(d, 10));
    const auto isLetter = hn::Lt(letter, hn::Set(d, 6));
    return {hn::IfThenElse(isNumber, number, hn::Add(letter, hn::Set(d, 10))),
            hn::Or(isNumber, isLetter)};
}

template <class D>
HWY_INLINE HexPair<D> hexPair(D d, Bytes<D> first, Bytes<D> second)
{
    const auto high = hexDigit(d, first);
    const auto low = hexDigit(d, second);
    return {hn::Or(hn::ShiftLeft<4>(high.value), low.value), hn::And(high.valid, low.valid)};
}

#endif

/// The bytes of a vector that a unit of two or three bytes takes, told by looking back: what "="
/// has begun is known at its last byte.
template <class D>
struct UnitMarks
{
    ByteMask<D> dropped;
    /// The last bytes of escapes, and what they stand for.
    ByteMask<D> escapeEnds;
    Bytes<D> values;
    /// Behind a "=" that begins no unit: there the plain walk has to look.
    ByteMask<D> irregular;
};

/// `before` and `twoBefore` hold what stands one and two bytes in front of `bytes`.
template <class D>
HWY_INLINE UnitMarks<D> markUnits(D d, Bytes<D> bytes, Bytes<D> before, Bytes<D> twoBefore)
{
    const auto equals = hn::Set(d, '=');
    const auto lineFeed = hn::Set(d, '\n');
    // "=" LF has ended with the byte before.
    const auto ends = hn::AndNot(hn::Eq(before, lineFeed), hn::Eq(twoBefore, equals));
    const auto longBreaks = hn::And(hn::Eq(before, hn::Set(d, '\r')), hn::Eq(bytes, lineFeed));
    const auto digits = hexPair(d, before, bytes);
    const auto regular = hn::Or(longBreaks, digits.valid);
    const auto begun = hn::Or(hn::Eq(bytes, equals), hn::Eq(before, equals));
    return {hn::Or(begun, hn::And(ends, longBreaks)), ends, digits.value,
            hn::AndNot(regular, ends)};
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#endif
