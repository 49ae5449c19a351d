// SPDX-License-Identifier: MIT
// What all vectorised files call a vector. Included once for each kind of processor, hence the
// toggling guard.
#if defined(TARVOMIME_ONE_VECTOR) == defined(HWY_TARGET_TOGGLE)
#ifdef TARVOMIME_ONE_VECTOR
#undef TARVOMIME_ONE_VECTOR
#else
#define TARVOMIME_ONE_VECTOR
#endif

#include "utility/vectors/Targets.h"

#include <cstdint>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

/// 16 bytes: the smallest step, and the only one on processors without wider vectors.
using Block = hn::Full128<std::uint8_t>;
/// The processor's own width, 64 bytes at most.
using Wide = hn::CappedTag<std::uint8_t, HWY_ARCH_X86 ? 64 : 16>;

template <class D>
using Bytes = hn::VFromD<D>;
template <class D>
using ByteMask = decltype(hn::Eq(Bytes<D>(), Bytes<D>()));

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#endif
