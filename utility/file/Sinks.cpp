// SPDX-License-Identifier: MIT
#include "utility/file/Sinks.h"

#include "utility/text/HugePages.h"
#include "utility/text/Room.h"

#include <QFile>
#include <utility>

namespace tarvomime {

MemorySink::MemorySink(QByteArray array) : SinkRoom{}, mArray(std::move(array))
{
    next = mArray.data();
    limit = next + mArray.size();
    preferHugePages(next, static_cast<std::size_t>(mArray.size()));
}

std::optional<MemorySink> MemorySink::withCapacity(std::size_t capacity)
{
    // One byte more, so that the limit lies past the last one.
    auto room = roomFor<QByteArray>(capacity, 1);
    return room ? std::optional(MemorySink(*std::move(room))) : std::nullopt;
}

QByteArray MemorySink::takeResult()
{
    mArray.resize(static_cast<int>(next - mArray.constData()));
    return std::move(mArray);
}

BlockSink::BlockSink(QFile* file, const ProgressCallback& callback)
    : SinkRoom{}, mFile(file), mCallback(callback)
{
    next = mBlock.data();
    limit = next + kBlockThreshold;
}

int BlockSink::flush()
{
    int used = static_cast<int>(next - mBlock.data());
    const int refused = writeFile(mFile, mBlock.data(), used, kBlockThreshold, mCallback);
    next = mBlock.data() + used;
    return refused;
}

int BlockSink::writeRest()
{
    const int used = static_cast<int>(next - mBlock.data());
    return used > 0 ? writeBlock(mFile, mBlock.data(), used) : flushedStatus(mFile);
}

} // namespace tarvomime
