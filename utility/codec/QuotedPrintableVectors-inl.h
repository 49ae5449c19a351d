// SPDX-License-Identifier: MIT
// Quoted-printable on one vector. Included once for each kind of processor, hence the toggling
// guard.
#if defined(TARVOMIME_QUOTED_PRINTABLE_VECTORS) == defined(HWY_TARGET_TOGGLE)
#ifdef TARVOMIME_QUOTED_PRINTABLE_VECTORS
#undef TARVOMIME_QUOTED_PRINTABLE_VECTORS
#else
#define TARVOMIME_QUOTED_PRINTABLE_VECTORS
#endif

#include "utility/codec/QuotedPrintableTables.h"
#include "utility/vectors/Avx512-inl.h"
#include "utility/vectors/Forms.h"
#include "utility/vectors/OneVector-inl.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

/// One bit for each byte, the first byte's lowest.
template <class D>
HWY_INLINE std::uint64_t bitsOf(D d, ByteMask<D> mask)
{
    hwy::UnsignedFromSize<hn::MaxLanes(D()) / 8> bits = 0;
    std::uint8_t stored[8];
    hn::StoreMaskBits(d, mask, stored);
    std::memcpy(&bits, stored, sizeof bits);
    return bits;
}

constexpr std::uint64_t lowBits(std::size_t count)
{
    return count >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << count) - 1;
}

template <class D>
HWY_INLINE ByteMask<D> isEscaped(D d, Bytes<D> bytes)
{
    const auto fromFirstPlain = hn::Sub(bytes, hn::Set(d, kQpFirstPlain));
    return hn::Or(hn::Gt(fromFirstPlain, hn::Set(d, kQpLastPlain - kQpFirstPlain)),
                  hn::Eq(bytes, hn::Set(d, '=')));
}

template <class D>
HWY_INLINE Bytes<D> upperDigit(D d, Bytes<D> bytes)
{
    const auto table = hn::LoadDup128(d, rawBytes(kHexDigits.data()));
    return hn::TableLookupBytes(table, hn::ShiftRight<4>(bytes));
}

template <class D>
HWY_INLINE Bytes<D> lowerDigit(D d, Bytes<D> bytes)
{
    const auto table = hn::LoadDup128(d, rawBytes(kHexDigits.data()));
    return hn::TableLookupBytes(table, hn::And(bytes, hn::Set(d, 0x0F)));
}

// Processors with AVX-512 VBMI2 drop any of 64 bytes in one step. The others do it for 8 bytes by a
// table.
#if TARVOMIME_HAS_VBMI

HWY_INLINE ByteMask<Wide> maskOf(Wide d, std::uint64_t bits)
{
    std::uint8_t stored[8];
    std::memcpy(stored, &bits, sizeof bits);
    return hn::LoadMaskBits(d, stored);
}

/// Stores the bytes whose bits are set in `kept`, side by side, and returns their count. The store
/// is as long as the vector.
HWY_INLINE std::size_t compact(Wide d, Bytes<Wide> bytes, std::uint64_t kept, std::uint8_t* out)
{
    hn::StoreU(hn::Compress(bytes, maskOf(d, kept)), d, out);
    return static_cast<std::size_t>(std::popcount(kept));
}

/// A step of the encoder: as many bytes as fit into a vector three times, and as many as are read.
constexpr std::size_t kExpanded = 21;
constexpr std::ptrdiff_t kExpandedReach = 32;

/// Each of the 21 bytes three times.
constexpr std::array<std::uint8_t, 64> makeTripled()
{
    std::array<std::uint8_t, 64> from{};
    for (std::size_t i = 0; i < 3 * kExpanded; ++i)
        from[i] = static_cast<std::uint8_t>(i / 3);
    return from;
}

/// Hexadecimal digits by the lower four bits: the table is 64 long and says the same for the
/// others.
constexpr std::array<std::uint8_t, 64> makeDigits()
{
    std::array<std::uint8_t, 64> digits{};
    for (std::size_t i = 0; i < digits.size(); ++i)
        digits[i] = static_cast<std::uint8_t>(kHexDigits[i % 16]);
    return digits;
}

alignas(64) constexpr std::array<std::uint8_t, 64> kTripled = makeTripled();
alignas(64) constexpr std::array<std::uint8_t, 64> kDigits = makeDigits();

/// Encodes `kExpanded` bytes without line breaks and returns the length of the result, 63 at most.
/// Stores 64 bytes.
HWY_INLINE std::size_t expand(const std::uint8_t* in, std::uint8_t* out)
{
    constexpr std::uint64_t kFirsts = 0x1249'2492'4924'9249;
    constexpr std::uint64_t kMiddles = kFirsts << 1;
    constexpr std::uint64_t kLasts = kFirsts << 2;

    const Wide d;
    const hn::Repartition<std::uint16_t, Wide> d16;
    const auto load = hn::LoadU(hn::Half<Wide>(), in);
    const auto tripled = hn::Load(d, kTripled.data());
    const auto digits = hn::Load(d, kDigits.data());
    const auto bytes = lookUp64(d, hn::ZeroExtendVector(d, load), tripled);
    const auto uppers = hn::BitCast(d, hn::ShiftRight<4>(hn::BitCast(d16, bytes)));
    const auto halves = hn::IfThenElse(maskOf(d, kMiddles), uppers, bytes);
    const auto inHex = lookUp64(d, digits, halves);
    const auto escapes = hn::IfThenElse(maskOf(d, kFirsts), hn::Set(d, '='), inHex);
    const auto escaped = isEscaped(d, bytes);
    const auto units = hn::IfThenElse(escaped, escapes, bytes);
    return compact(d, units, (bitsOf(d, escaped) & lowBits(3 * kExpanded)) | kLasts, out);
}

#else

/// For each set of bits: the places of the bytes to keep, first ones first.
constexpr auto kKept = [] {
    std::array<std::array<std::uint8_t, 16>, 256> table{};
    for (std::size_t set = 0; set < table.size(); ++set) {
        std::size_t count = 0;
        for (std::uint8_t bit = 0; bit < 8; ++bit) {
            if ((set >> bit & 1) != 0)
                table[set][count++] = bit;
        }
    }
    return table;
}();

/// Stores the bytes whose bits are set in `kept`, side by side, and returns their count. The stores
/// reach up to 8 bytes further than the vector.
template <class D>
HWY_INLINE std::size_t compact(D d, Bytes<D> bytes, std::uint64_t kept, std::uint8_t* out)
{
    if constexpr (hn::MaxLanes(D()) > 16) {
        const hn::Half<D> half;
        const std::size_t lower = compact(half, hn::LowerHalf(half, bytes), kept, out);
        return lower +
               compact(half, hn::UpperHalf(half, bytes), kept >> hn::MaxLanes(half), out + lower);
    } else {
        const auto& lower = kKept[kept & 0xFF];
        const auto& upper = kKept[kept >> 8 & 0xFF];
        const auto fromUpper = hn::Add(hn::LoadU(d, upper.data()), hn::Set(d, 8));
        const auto count = static_cast<std::size_t>(std::popcount(kept & 0xFF));
        hn::StoreU(hn::TableLookupBytes(bytes, hn::LoadU(d, lower.data())), d, out);
        hn::StoreU(hn::TableLookupBytes(bytes, fromUpper), d, out + count);
        return count + static_cast<std::size_t>(std::popcount(kept >> 8 & 0xFF));
    }
}

/// A step of the encoder, in bytes taken and in bytes read.
constexpr std::size_t kExpanded = 16;
constexpr std::ptrdiff_t kExpandedReach = 16;

/// For each set of escaped ones among four bytes: where the units come from in a block of the four
/// bytes, their upper digits, their lower digits and four "=".
constexpr auto kUnits = [] {
    std::array<std::array<std::uint8_t, 16>, 16> table{};
    for (std::size_t set = 0; set < table.size(); ++set) {
        std::size_t count = 0;
        for (std::uint8_t byte = 0; byte < 4; ++byte) {
            if ((set >> byte & 1) == 0) {
                table[set][count++] = byte;
                continue;
            }
            table[set][count++] = 12;
            table[set][count++] = static_cast<std::uint8_t>(4 + byte);
            table[set][count++] = static_cast<std::uint8_t>(8 + byte);
        }
    }
    return table;
}();

HWY_INLINE std::size_t expandFour(Bytes<Block> sources, std::size_t escaped, std::uint8_t* out)
{
    const Block d;
    hn::StoreU(hn::TableLookupBytes(sources, hn::LoadU(d, kUnits[escaped].data())), d, out);
    return 4 + 2 * static_cast<std::size_t>(std::popcount(escaped));
}

/// Encodes `kExpanded` bytes without line breaks and returns the length of the result, 48 at most.
/// Stores up to 64 bytes.
HWY_INLINE std::size_t expand(const std::uint8_t* in, std::uint8_t* out)
{
    const Block d;
    const hn::Repartition<std::uint32_t, Block> d32;
    const hn::Repartition<std::uint64_t, Block> d64;
    const auto bytes = hn::LoadU(d, in);
    const std::uint64_t escaped = bitsOf(d, isEscaped(d, bytes));
    const auto plain = hn::BitCast(d32, bytes);
    const auto uppers = hn::BitCast(d32, upperDigit(d, bytes));
    const auto lowers = hn::BitCast(d32, lowerDigit(d, bytes));
    const auto equals = hn::BitCast(d32, hn::Set(d, '='));
    // Four by four: bytes and upper digits side by side, then lower digits and "=" behind them.
    const auto first = hn::BitCast(d64, hn::InterleaveLower(d32, plain, uppers));
    const auto second = hn::BitCast(d64, hn::InterleaveUpper(d32, plain, uppers));
    const auto firstRest = hn::BitCast(d64, hn::InterleaveLower(d32, lowers, equals));
    const auto secondRest = hn::BitCast(d64, hn::InterleaveUpper(d32, lowers, equals));
    const Bytes<Block> sources[4] = {hn::BitCast(d, hn::InterleaveLower(d64, first, firstRest)),
                                     hn::BitCast(d, hn::InterleaveUpper(d64, first, firstRest)),
                                     hn::BitCast(d, hn::InterleaveLower(d64, second, secondRest)),
                                     hn::BitCast(d, hn::InterleaveUpper(d64, second, secondRest))};
    std::size_t written = 0;
    for (std::size_t four = 0; four < 4; ++four)
        written += expandFour(sources[four], escaped >> (4 * four) & 0x0F, out + written);
    return written;
}

#endif

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#endif
