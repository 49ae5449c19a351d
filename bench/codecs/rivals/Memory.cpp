// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"

#include <cstring>
#include <vector>

namespace bench {

namespace {

std::size_t copy(const std::string& in)
{
    static std::vector<char> out(kSizes.back());
    std::memcpy(out.data(), in.data(), in.size());
    benchmark::ClobberMemory();
    return in.size();
}

const bool added = addWork("memcpy", Job::Copy, copy);

} // namespace

} // namespace bench
