// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <sys/mman.h>

/// 4 GiB of address space without memory behind it: what is longer than the interface's sizes, for
/// tests that show that it is refused unread. Writing to it ends the program.
class HugeBytes
{
public:
    HugeBytes()
        : mMapping(
              mmap(nullptr, length, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0))
    {
    }
    HugeBytes(const HugeBytes&) = delete;
    HugeBytes& operator=(const HugeBytes&) = delete;
    ~HugeBytes()
    {
        if (isMapped())
            munmap(mMapping, length);
    }

    bool isMapped() const { return mMapping != MAP_FAILED; }
    const char* data() const { return static_cast<const char*>(mMapping); }

    /// Nothing where addresses have 32 bits: no text can be that long there.
    static constexpr auto length =
        static_cast<std::size_t>(sizeof(std::size_t) > 4 ? std::uint64_t{1} << 32 : 0);

private:
    void* mMapping;
};
