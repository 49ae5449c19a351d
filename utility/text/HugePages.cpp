// SPDX-License-Identifier: MIT
#include "utility/text/HugePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace tarvomime {

void preferHugePages([[maybe_unused]] char* start, [[maybe_unused]] std::size_t length)
{
#ifdef MADV_HUGEPAGE
    constexpr std::uintptr_t kHugePage = std::uintptr_t(1) << 21;
    // Less is mostly memory that is in use already.
    if (length < 2 * kHugePage)
        return;
    const auto address = reinterpret_cast<std::uintptr_t>(start);
    const std::uintptr_t first = (address + kHugePage - 1) / kHugePage * kHugePage;
    const std::uintptr_t last = (address + length) / kHugePage * kHugePage;
    // A wish: where it is not granted the memory is as good.
    if (first < last)
        madvise(start + (first - address), last - first, MADV_HUGEPAGE);
#endif
}

} // namespace tarvomime
