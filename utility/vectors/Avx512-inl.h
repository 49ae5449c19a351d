// SPDX-License-Identifier: MIT
// What AVX-512 with VBMI does in one step and the vector library has no name for: the raw
// instructions, here and nowhere else. Where the same can be said for every processor, that form
// stands beside; what is done in place of a long table depends on what is in it, and stands beside
// the look-up. Each use was measured over 64 KiB: without it, its codec takes 10 to 90 % longer.
//
// Included once for each kind of processor, hence the toggling guard.
#if defined(TARVOMIME_AVX512) == defined(HWY_TARGET_TOGGLE)
#ifdef TARVOMIME_AVX512
#undef TARVOMIME_AVX512
#else
#define TARVOMIME_AVX512
#endif

#include "utility/vectors/OneVector-inl.h"

#include <array>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

#if TARVOMIME_HAS_VBMI

/// The bytes of a table of 64, by the lower six bits of each index.
template <class D>
HWY_INLINE Bytes<D> lookUp64(D, Bytes<Wide> table, Bytes<D> indices)
{
    if constexpr (hn::MaxLanes(D()) == 64)
        return Bytes<D>{_mm512_permutexvar_epi8(indices.raw, table.raw)};
    else
        return Bytes<D>{_mm512_castsi512_si128(
            _mm512_permutexvar_epi8(_mm512_castsi128_si512(indices.raw), table.raw))};
}

/// The same by the lower seven bits.
template <class D>
HWY_INLINE Bytes<D> lookUp128(D, const std::array<std::uint8_t, 128>& table, Bytes<D> indices)
{
    const auto low = hn::LoadU(Wide(), table.data());
    const auto high = hn::LoadU(Wide(), table.data() + 64);
    if constexpr (hn::MaxLanes(D()) == 64)
        return Bytes<D>{_mm512_permutex2var_epi8(low.raw, indices.raw, high.raw)};
    else
        return Bytes<D>{_mm512_castsi512_si128(
            _mm512_permutex2var_epi8(low.raw, _mm512_castsi128_si512(indices.raw), high.raw))};
}

#endif

/// The sextets of 24 bits in each 32-bit lane, which lie there as b a c b. Above a sextet anything
/// may stand.
template <class D>
HWY_INLINE Bytes<D> sextetsOf(D d, Bytes<D> spread)
{
#if TARVOMIME_HAS_VBMI
    // Each byte takes the 8 bits from its own position on; the digits' table ignores the upper two.
    const auto shifts = hn::BitCast(
        d, hn::Set(hn::Repartition<std::uint64_t, D>(), std::uint64_t{0x3036242A1016040A}));
    if constexpr (hn::MaxLanes(D()) == 64)
        return Bytes<D>{_mm512_multishift_epi64_epi8(shifts.raw, spread.raw)};
    else
        return Bytes<D>{_mm_multishift_epi64_epi8(shifts.raw, spread.raw)};
#else
    const hn::Repartition<std::uint32_t, D> d32;
    const hn::Repartition<std::uint16_t, D> d16;
    const auto lanes = hn::BitCast(d32, spread);
    const auto odd = hn::MulHigh(hn::BitCast(d16, hn::And(lanes, hn::Set(d32, 0x0FC0FC00U))),
                                 hn::BitCast(d16, hn::Set(d32, 0x04000040U)));
    const auto even = hn::Mul(hn::BitCast(d16, hn::And(lanes, hn::Set(d32, 0x003F03F0U))),
                              hn::BitCast(d16, hn::Set(d32, 0x01000010U)));
    return hn::BitCast(d, hn::Or(odd, even));
#endif
}

/// The 24 bits of each four sextets, in the lower three bytes of their 32-bit lane, first bits in
/// the highest of them.
template <class D>
HWY_INLINE Bytes<D> bitsOfGroups(D d, Bytes<D> sextets)
{
#if TARVOMIME_HAS_VBMI
    const hn::Repartition<std::uint16_t, D> d16;
    const hn::Repartition<std::uint32_t, D> d32;
    const auto pairs = hn::Set(d16, 0x0140).raw;
    const auto groups = hn::Set(d32, 0x00011000U).raw;
    if constexpr (hn::MaxLanes(D()) == 64)
        return Bytes<D>{_mm512_madd_epi16(_mm512_maddubs_epi16(sextets.raw, pairs), groups)};
    else
        return Bytes<D>{_mm_madd_epi16(_mm_maddubs_epi16(sextets.raw, pairs), groups)};
#else
    const hn::Repartition<std::uint16_t, D> d16;
    const hn::Repartition<std::uint32_t, D> d32;
    const auto s = hn::BitCast(d16, sextets);
    const auto firsts = hn::And(s, hn::Set(d16, 0x00FF));
    const auto pairs = hn::BitCast(d32, hn::Or(hn::ShiftLeft<6>(firsts), hn::ShiftRight<8>(s)));
    const auto firstPairs = hn::And(pairs, hn::Set(d32, 0x0000FFFFU));
    return hn::BitCast(d, hn::Or(hn::ShiftLeft<12>(firstPairs), hn::ShiftRight<16>(pairs)));
#endif
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#endif
