// SPDX-License-Identifier: MIT
#include "utility/time/CurrentZone.h"

#include <atomic>
#include <cstdlib>
#include <ctime>

namespace tarvomime {

namespace {

// The second in which the file was looked at last; none while TZ names the zone. The zone belongs
// to the process, and so does this.
constexpr std::time_t kNoTime = -1;
std::atomic<std::time_t> lookedAt = kNoTime;

} // namespace

void followZone()
{
    // With TZ set the C library compares its text and asks nobody.
    const std::time_t now = std::getenv("TZ") != nullptr ? kNoTime : std::time(nullptr);
    if (now != kNoTime && now == lookedAt.load(std::memory_order_relaxed))
        return;
    tzset();
    lookedAt.store(now, std::memory_order_relaxed);
}

} // namespace tarvomime
