// SPDX-License-Identifier: MIT
#include "utility/file/Sinks.h"

#include "utility/text/Room.h"

#include <QFile>
#include <cstdint>
#include <sys/mman.h>
#include <utility>

namespace tarvomime {

namespace {

// A page touched for the first time costs more than filling it: ask for large ones.
void preferHugePages([[maybe_unused]] char* start, [[maybe_unused]] std::size_t length)
{
#ifdef MADV_HUGEPAGE
    constexpr std::uintptr_t kHugePage = std::uintptr_t(1) << 21;
    const auto address = reinterpret_cast<std::uintptr_t>(start);
    const std::uintptr_t first = (address + kHugePage - 1) / kHugePage * kHugePage;
    const std::uintptr_t last = (address + length) / kHugePage * kHugePage;
    // A wish: where it is not granted the memory is as good.
    if (first < last)
        madvise(start + (first - address), last - first, MADV_HUGEPAGE);
#endif
}

} // namespace

MemorySink::MemorySink(QByteArray array)
    : mArray(std::move(array)), mStart(mArray.data()), mNext(mStart)
{
    preferHugePages(mStart, static_cast<std::size_t>(mArray.size()));
}

std::optional<MemorySink> MemorySink::withCapacity(std::size_t capacity)
{
    // One byte more, so that the limit lies past the last one.
    auto room = roomFor<QByteArray>(capacity, 1);
    return room ? std::optional(MemorySink(*std::move(room))) : std::nullopt;
}

QByteArray MemorySink::takeResult()
{
    mArray.resize(static_cast<int>(mNext - mStart));
    return std::move(mArray);
}

int BlockSink::flush()
{
    int used = static_cast<int>(mNext - mBlock.data());
    const int refused = writeFile(mFile, mBlock.data(), used, kBlockThreshold, mCallback);
    mNext = mBlock.data() + used;
    return refused;
}

int BlockSink::writeRest()
{
    const int used = static_cast<int>(mNext - mBlock.data());
    return used > 0 ? writeBlock(mFile, mBlock.data(), used) : flushedStatus(mFile);
}

} // namespace tarvomime
