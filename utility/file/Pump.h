// SPDX-License-Identifier: MIT
#pragma once

#include "utility/file/BodyBytes.h"
#include "utility/file/Sinks.h"

/// Running a codec from bytes in memory or in a file to either kind of sink. A codec's rule is
/// written once, as a class with
///
///     void take(std::string_view block);   // input, after what came before
///     char* run(char* next, char* limit);  // writes units while next < limit and input is left
///     std::string_view rest() const;       // the end of the block that waits for the next one
///     bool isEnded() const;                // whether no further input would be looked at
///     char* finish(char* next);            // writes what ends the text: at most kLongestEnd bytes
///
/// where a unit is what is never cut in two by the end of a block that is written (a base64 group,
/// an escape). A unit that begins below `limit` may end up to kLongestUnit bytes past it. Where the
/// input is cut into blocks makes no difference.
namespace tarvomime {

/// What is read of a file at a time: whole lines of base64, of 76 digits with CR LF or LF alone.
/// The fast path would fall out of step at a line that a block's end divides.
constexpr std::size_t kWholeLines = std::size_t{78} * 77 * 5;

/// Runs `codec` over one block. Returns 0, or the sink's refusal.
template <class Codec, class Sink>
int pumpBlock(Codec& codec, std::string_view block, Sink& sink)
{
    codec.take(block);
    sink.next = codec.run(sink.next, sink.limit);
    while (sink.next >= sink.limit) {
        const int refused = sink.flush();
        if (refused != 0)
            return refused;
        sink.next = codec.run(sink.next, sink.limit);
    }
    return 0;
}

/// Runs `codec` over all of `input`. Returns 0, the sink's refusal, or -1 when the input cannot be
/// read.
template <class Codec, class Sink>
int pump(Codec& codec, const BodyBytes& input, Sink& sink)
{
    BodyBlocks blocks(input, kWholeLines);
    while (!blocks.atEnd() && !codec.isEnded()) {
        const auto block = blocks.next(codec.rest());
        const int refused = block ? pumpBlock(codec, *block, sink) : -1;
        if (refused != 0)
            return refused;
    }
    sink.next = codec.finish(sink.next);
    return 0;
}

/// The same over a text, which is one block: where the text is short, what blocks cost would show.
template <class Codec, class Sink>
int pump(Codec& codec, std::string_view input, Sink& sink)
{
    const int refused = pumpBlock(codec, input, sink);
    if (refused == 0)
        sink.next = codec.finish(sink.next);
    return refused;
}

/// The result in memory; nothing when there is no room for it or the input, `BodyBytes` or a text,
/// cannot be read.
template <class Codec, class Input>
std::optional<QByteArray> runInMemory(Codec codec, const Input& input, std::size_t capacity)
{
    auto sink = MemorySink::withCapacity(capacity);
    if (!sink || pump(codec, input, *sink) != 0)
        return std::nullopt;
    return sink->takeResult();
}

/// A decoder never writes more bytes than it reads, so that it is not stopped by a limit one past
/// them.
constexpr int kDecodingSlack = 1;

/// The result in the caller's buffer, which has room for the text's length and kDecodingSlack
/// bytes; its length.
template <class Decoder>
std::size_t runInto(Decoder decoder, std::string_view text, char* out)
{
    decoder.take(text);
    char* const end = decoder.run(out, out + text.size() + kDecodingSlack);
    return static_cast<std::size_t>(decoder.finish(end) - out);
}

/// 0, or -1 when the input cannot be read, a write failed or the callback refused. A callback that
/// breaks its contract with another value than 0 and -1 stops the codec too: the block has no room
/// for more.
template <class Codec>
int runToFile(Codec codec, const BodyBytes& input, QFile* file, const ProgressCallback& callback)
{
    BlockSink sink(file, callback);
    return pump(codec, input, sink) == 0 && sink.writeRest() == 0 ? 0 : -1;
}

} // namespace tarvomime
