// SPDX-License-Identifier: MIT
#pragma once

#include "utility/file/BlockWriter.h"

#include <QByteArray>
#include <array>
#include <cstddef>
#include <optional>

class QFile;

/// The two ends a codec can write to; see Pump.h.
namespace tarvomime {

constexpr std::size_t kLongestUnit = 8;
constexpr std::size_t kLongestEnd = 8;

/// Where a codec writes next, and the limit below which a unit may begin. A pointer each, that the
/// codec's loop moves: a sink has nothing to say to single bytes.
struct SinkRoom
{
    char* next;
    char* limit;
};

/// Builds the result in place: the array that is handed out is the one the codec writes into. A
/// codec that was given enough room never reaches the limit.
class MemorySink : public SinkRoom
{
public:
    /// Room for `capacity` bytes; nothing when there is no memory for them or no text may be that
    /// long.
    static std::optional<MemorySink> withCapacity(std::size_t capacity);

    /// Refuses: there is no more room.
    int flush() { return -1; }
    QByteArray takeResult();

private:
    explicit MemorySink(QByteArray array);

    QByteArray mArray;
};

/// Gathers a block on the stack and hands it to the block writer once it is full.
class BlockSink : public SinkRoom
{
public:
    BlockSink(QFile* file, const ProgressCallback& callback);
    BlockSink(const BlockSink&) = delete;
    BlockSink& operator=(const BlockSink&) = delete;

    /// Writes the block once it has come to its limit.
    int flush();
    /// Writes what is left, without asking the callback. Returns 0 when the file has taken all.
    int writeRest();

private:
    QFile* mFile;
    const ProgressCallback& mCallback;
    std::array<char, kBlockThreshold + kLongestUnit + kLongestEnd> mBlock;
};

} // namespace tarvomime
