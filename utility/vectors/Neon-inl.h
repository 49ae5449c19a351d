// SPDX-License-Identifier: MIT
// What a 64-bit ARM does in one step and the vector library has no name for: the raw instructions,
// here and nowhere else.
//
// Included once for each kind of processor, hence the toggling guard.
#if defined(TARVOMIME_NEON) == defined(HWY_TARGET_TOGGLE)
#ifdef TARVOMIME_NEON
#undef TARVOMIME_NEON
#else
#define TARVOMIME_NEON
#endif

#include "utility/vectors/OneVector-inl.h"

#include <array>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

#if HWY_ARCH_ARM_A64

/// The bytes of a table of 64, and zero for what is no index.
HWY_INLINE Bytes<Block> lookUp64OrZero(const std::array<std::uint8_t, 64>& table,
                                       Bytes<Block> indices)
{
    return Bytes<Block>{vqtbl4q_u8(vld1q_u8_x4(table.data()), indices.raw)};
}

/// Stores the bytes at 8 places of a vector.
HWY_INLINE void storeEight(Bytes<Block> bytes, const std::uint8_t* places, std::uint8_t* out)
{
    vst1_u8(out, vqtbl1_u8(bytes.raw, vld1_u8(places)));
}

/// The lower four bits of `high` in front of those of `low`.
HWY_INLINE Bytes<Block> joinNibbles(Bytes<Block> high, Bytes<Block> low)
{
    return Bytes<Block>{vsliq_n_u8(low.raw, high.raw, 4)};
}

/// One bit for each byte of four vectors that 64 bytes were dealt to in turn, the first one's
/// lowest.
HWY_INLINE std::uint64_t bitsOfFour(ByteMask<Block> m0, ByteMask<Block> m1, ByteMask<Block> m2,
                                    ByteMask<Block> m3)
{
    // Each step puts bits in front of what is there: two of neighbours, then four, then these again
    // into the lower half, from which every other byte takes them.
    const uint8x16_t first = vsriq_n_u8(m1.raw, m0.raw, 1);
    const uint8x16_t second = vsriq_n_u8(m3.raw, m2.raw, 1);
    const uint8x16_t four = vsriq_n_u8(second, first, 2);
    const uint8x16_t twice = vsriq_n_u8(four, four, 4);
    const uint8x8_t bits = vshrn_n_u16(vreinterpretq_u16_u8(twice), 4);
    return vget_lane_u64(vreinterpret_u64_u8(bits), 0);
}

/// How many bits are set in each byte.
HWY_INLINE std::uint64_t bitCounts(std::uint64_t bits)
{
    return vget_lane_u64(vreinterpret_u64_u8(vcnt_u8(vcreate_u8(bits))), 0);
}

#endif

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#endif
