// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"

#include <cstring>
#include <memory>
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

// As a codec does that hands out memory of its own, of the size of a text in quoted-printable.
std::size_t copyToFreshMemory(const std::string& in)
{
    const std::unique_ptr<char[]> out(new char[3 * in.size()]);
    for (std::size_t third = 0; third < 3; ++third)
        std::memcpy(out.get() + third * in.size(), in.data(), in.size());
    benchmark::DoNotOptimize(out.get());
    benchmark::ClobberMemory();
    return in.size();
}

const bool added =
    addWork("memcpy", Job::Copy, copy) && addWork("memcpy-3-fresh", Job::Copy, copyToFreshMemory);

} // namespace

} // namespace bench
