// SPDX-License-Identifier: MIT
#include "utility/text/HugePages.h"

#include <sys/mman.h>

namespace huge_pages_test {

namespace {

constexpr std::size_t kHugePage = std::size_t(1) << 21;

// Memory that ends where nothing may be touched.
class Mapping
{
public:
    explicit Mapping(std::size_t length)
        : mLength(length),
          mStart(mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
    {
    }
    Mapping(const Mapping&) = delete;
    Mapping& operator=(const Mapping&) = delete;
    ~Mapping()
    {
        if (isMapped())
            munmap(mStart, mLength);
    }

    bool isMapped() const { return mStart != MAP_FAILED; }
    char* bytes() const { return static_cast<char*>(mStart); }

private:
    std::size_t mLength;
    void* mStart;
};

} // namespace

// It is a wish: what is in the memory stays, whatever piece of it is named.
TEST(HugePages, LeaveTheBytesAsTheyAre)
{
    constexpr std::size_t kLength = 5 * kHugePage;
    const Mapping memory(kLength);
    ASSERT_TRUE(memory.isMapped());
    for (std::size_t at = 0; at < kLength; at += 4096)
        memory.bytes()[at] = static_cast<char>(at >> 12);
    for (const std::size_t start : {std::size_t(0), std::size_t(1), kHugePage - 1, kHugePage})
        for (const std::size_t length : {std::size_t(0), std::size_t(1), kHugePage,
                                         2 * kHugePage - 1, 2 * kHugePage, kLength - start})
            tarvomime::preferHugePages(memory.bytes() + start, length);
    for (std::size_t at = 0; at < kLength; at += 4096)
        ASSERT_EQ(memory.bytes()[at], static_cast<char>(at >> 12)) << at;
}

// Nothing outside whole pages of the piece is asked for: beside it lies memory of others.
TEST(HugePages, LeaveErrnoAndSmallPiecesAlone)
{
    char few[64] = "few";
    tarvomime::preferHugePages(few, sizeof few);
    tarvomime::preferHugePages(nullptr, 0);
    EXPECT_STREQ(few, "few");
}

} // namespace huge_pages_test
