// SPDX-License-Identifier: MIT
#include "utility/tree/DelimiterSearch.h"
#include "utility/vectors/Forms.h"

#include <cstdint>

// This file is compiled once for each kind of processor; the best one is chosen at run time.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "utility/tree/DelimiterSearchSimd.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#if TARVOMIME_HAS_VECTORS

#include "utility/vectors/OneVector-inl.h"

HWY_BEFORE_NAMESPACE();
namespace tarvomime {
namespace HWY_NAMESPACE {
namespace {

std::size_t passOver(const std::uint8_t* text, std::size_t count, std::size_t distance,
                     std::uint8_t last)
{
    const Wide d;
    const std::size_t lanes = hn::Lanes(d);
    const auto lineFeeds = hn::Set(d, '\n');
    const auto hyphens = hn::Set(d, '-');
    const auto lasts = hn::Set(d, last);
    std::size_t place = 0;
    for (; count - place >= lanes; place += lanes) {
        const std::uint8_t* here = text + place;
        const auto found = hn::And(
            hn::And(hn::Eq(hn::LoadU(d, here), lineFeeds), hn::Eq(hn::LoadU(d, here + 1), hyphens)),
            hn::Eq(hn::LoadU(d, here + distance), lasts));
        if (const std::intptr_t lane = hn::FindFirstTrue(d, found); lane >= 0)
            return place + static_cast<std::size_t>(lane);
    }
    return place;
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace tarvomime
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE
namespace tarvomime {

namespace {

std::size_t passOverNothing(const std::uint8_t*, std::size_t, std::size_t, std::uint8_t)
{
    return 0;
}

} // namespace

std::size_t placesWithout(const char* text, std::size_t count, std::size_t distance, char last)
{
    static constexpr Forms<decltype(passOverNothing)> kForms =
        TARVOMIME_FORMS(passOver, passOverNothing);
    return formHere(kForms)(rawBytes(text), count, distance, static_cast<std::uint8_t>(last));
}

} // namespace tarvomime
#endif
