// SPDX-License-Identifier: MIT
#include "utility/file/BodyBytes.h"

#include "utility/file/Sinks.h"

#include <algorithm>
#include <new>

namespace tarvomime {

BodyBytes::BodyBytes(const char* bytes, int length)
    : mMemory(bytes, bytes == nullptr ? 0 : static_cast<std::size_t>(std::max(length, 0)))
{
}

BodyBytes::BodyBytes(const QString& path, int offset, int length)
    : mFile(path), mIsFile(true), mOffset(offset), mLength(length)
{
}

bool BodyBytes::ok() const
{
    return isInMemory() || mFile.holds(mOffset, mLength);
}

bool BodyBytes::isInMemory() const
{
    return !mIsFile;
}

std::size_t BodyBytes::size() const
{
    return mIsFile ? static_cast<std::size_t>(std::max(mLength, 0)) : mMemory.size();
}

std::optional<QByteArray> BodyBytes::first(std::size_t count) const
{
    count = std::min(count, size());
    auto sink = ok() ? MemorySink::withCapacity(count) : std::nullopt;
    if (!sink)
        return std::nullopt;
    if (isInMemory())
        std::copy_n(mMemory.data(), count, sink->next);
    else if (!mFile.read(mOffset, sink->next, static_cast<int>(count)))
        return std::nullopt;
    sink->next += count;
    return sink->takeResult();
}

BodyBlocks::BodyBlocks(const BodyBytes& bytes, std::size_t blockSize)
    : mBytes(bytes), mLeft(bytes.size()), mBlockSize(blockSize)
{
}

bool BodyBlocks::atEnd() const
{
    return mLeft == 0 && mBytes.ok();
}

// A thread's stack may have no room for a second block beside the one that gathers the output.
std::optional<std::string_view> BodyBlocks::next(std::string_view rest)
{
    if (mBytes.isInMemory()) {
        mLeft = 0;
        return mBytes.view();
    }
    const std::size_t count = std::min(mLeft, mBlockSize);
    if (mBlock == nullptr && mBytes.ok())
        mBlock.reset(new (std::nothrow) char[kLongestRest + count]);
    if (mBlock == nullptr)
        return std::nullopt;
    char* const start = mBlock.get() + kLongestRest;
    char* const restAgain = start - rest.size();
    std::copy(rest.begin(), rest.end(), restAgain);
    const int offset = mBytes.mOffset + mBytes.mLength - static_cast<int>(mLeft);
    if (!mBytes.mFile.read(offset, start, static_cast<int>(count)))
        return std::nullopt;
    mLeft -= count;
    return std::string_view(restAgain, rest.size() + count);
}

} // namespace tarvomime
