// SPDX-License-Identifier: MIT
#include "utility/codec/Sinks.h"

#include <QFile>
#include <limits>
#include <new>
#include <utility>

namespace tarvomime {

namespace {

using ArraySize = decltype(QByteArray().size());

// Room for the terminator and for the array's own head.
constexpr std::size_t kLongestArray = std::numeric_limits<ArraySize>::max() - 64;

} // namespace

MemorySink::MemorySink(QByteArray array)
    : mArray(std::move(array)), mStart(mArray.data()), mNext(mStart)
{
}

std::optional<MemorySink> MemorySink::withCapacity(std::size_t capacity)
{
    if (capacity > kLongestArray)
        return std::nullopt;
    try {
        return MemorySink(QByteArray(static_cast<ArraySize>(capacity), Qt::Uninitialized));
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

QByteArray MemorySink::takeResult()
{
    mArray.resize(static_cast<ArraySize>(mNext - mStart));
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
