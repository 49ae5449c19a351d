// SPDX-License-Identifier: MIT
#pragma once

#include "utility/file/BlockWriter.h"

#include <QByteArray>
#include <array>
#include <cstddef>
#include <optional>

class QFile;

/// The two ends a codec can write to. A codec's rule is written once, as a class with
///
///     char* run(char* next, char* limit);  // writes units while next < limit and input is left
///     char* finish(char* next);            // writes what ends the text: at most kLongestEnd bytes
///
/// where a unit is what is never cut in two by a block's end (a base64 group, an escape). A unit
/// that begins below `limit` may end up to kLongestUnit bytes past it.
namespace tarvomime {

constexpr std::size_t kLongestUnit = 8;
constexpr std::size_t kLongestEnd = 8;

/// An encoder refuses a longer input unread: the length of what it would write could wrap round,
/// and no memory has room for it.
constexpr unsigned long kLongestInput = ~0UL / 8;

/// Builds the result in place: the array that is handed out is the one the codec writes into.
class MemorySink
{
public:
    /// Room for `capacity` bytes; nothing when there is no memory for them or an array cannot be
    /// that long.
    static std::optional<MemorySink> withCapacity(std::size_t capacity);

    char* next() const { return mNext; }
    /// A codec that was given enough room never reaches it.
    char* limit() const { return mStart + mArray.size(); }
    void advanceTo(char* next) { mNext = next; }
    /// Refuses: there is no more room.
    int flush() { return -1; }
    QByteArray takeResult();

private:
    explicit MemorySink(QByteArray array);

    QByteArray mArray;
    char* mStart;
    char* mNext;
};

/// Gathers a block on the stack and hands it to the block writer once it is full.
class BlockSink
{
public:
    BlockSink(QFile* file, const ProgressCallback& callback) : mFile(file), mCallback(callback) {}
    BlockSink(const BlockSink&) = delete;
    BlockSink& operator=(const BlockSink&) = delete;

    char* next() { return mNext; }
    char* limit() { return mBlock.data() + kBlockThreshold; }
    void advanceTo(char* next) { mNext = next; }
    int flush();
    /// Writes what is left, without asking the callback. Returns 0 when the file has taken all.
    int writeRest();

private:
    QFile* mFile;
    const ProgressCallback& mCallback;
    std::array<char, kBlockThreshold + kLongestUnit + kLongestEnd> mBlock;
    char* mNext = mBlock.data();
};

/// Runs `codec` over all of its input. Returns 0, or the sink's refusal.
template <class Codec, class Sink>
int pump(Codec& codec, Sink& sink)
{
    for (;;) {
        sink.advanceTo(codec.run(sink.next(), sink.limit()));
        if (sink.next() < sink.limit())
            break;
        const int refused = sink.flush();
        if (refused != 0)
            return refused;
    }
    sink.advanceTo(codec.finish(sink.next()));
    return 0;
}

/// The result in memory; nothing when there is no room for it.
template <class Codec>
std::optional<QByteArray> runInMemory(Codec codec, std::size_t capacity)
{
    auto sink = MemorySink::withCapacity(capacity);
    if (!sink)
        return std::nullopt;
    if (pump(codec, *sink) != 0)
        return std::nullopt;
    return sink->takeResult();
}

/// A decoder never writes more bytes than it reads, so that it is not stopped by a limit one past
/// them.
constexpr int kDecodingSlack = 1;

/// The result in the caller's `room` bytes and kDecodingSlack more; its length.
template <class Decoder>
std::size_t runInto(Decoder decoder, char* out, std::size_t room)
{
    char* const end = decoder.run(out, out + room + kDecodingSlack);
    return static_cast<std::size_t>(decoder.finish(end) - out);
}

/// 0, or -1 when a write failed or the callback refused. A callback that breaks its contract with
/// another value than 0 and -1 stops the codec too: the block has no room for more.
template <class Codec>
int runToFile(Codec codec, QFile* file, const ProgressCallback& callback)
{
    BlockSink sink(file, callback);
    return pump(codec, sink) == 0 && sink.writeRest() == 0 ? 0 : -1;
}

} // namespace tarvomime
