// SPDX-License-Identifier: MIT
#pragma once

#include "utility/file/BlockWriter.h"
#include "utility/file/RegularFile.h"

#include <QByteArray>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace tarvomime {

/// The stored bytes of a body: in memory, or a range of a file.
///
/// A file is read at its place and never mapped, so that one that is cut short while it is read
/// ends the reading and not the program.
class BodyBytes
{
public:
    /// Bytes in memory, which stay there as long as this object is used.
    explicit BodyBytes(std::string_view bytes) : mMemory(bytes) {}
    /// The same; a null pointer and a negative length give none.
    BodyBytes(const char* bytes, int length);
    /// `length` bytes at `offset` of the file `path`, which is open from now on.
    BodyBytes(const QString& path, int offset, int length);

    /// Whether there are such bytes: the file could be opened and held the range then.
    bool ok() const;
    bool isInMemory() const;
    /// The bytes in memory.
    std::string_view view() const { return mMemory; }
    std::size_t size() const;
    /// At most `count` bytes from the start as an array; nothing when they cannot be read or there
    /// is no room for them.
    std::optional<QByteArray> first(std::size_t count) const;
    std::optional<QByteArray> all() const { return first(size()); }

private:
    friend class BodyBlocks;

    RegularFile mFile;
    bool mIsFile = false;
    int mOffset = 0;
    int mLength = 0;
    std::string_view mMemory;
};

/// What a NUL inside a text of known length means to a decoder. One that knows need not look for it
/// beforehand, in a pass of its own.
enum class NulByte { IsData, EndsText };

/// Hands out stored bytes in order: those of a file in blocks, those in memory at once.
class BodyBlocks
{
public:
    /// Bytes that are not ok give an error with their first block. `blockSize` is the size of the
    /// blocks of a file.
    explicit BodyBlocks(const BodyBytes& bytes, std::size_t blockSize = kBlockThreshold);

    bool atEnd() const;
    /// The next bytes, good until the next call. In front of them stand again those of the last
    /// block that `rest` views, its end that could not be used alone: kLongestRest bytes at most.
    /// Nothing when the file does not have them any more.
    std::optional<std::string_view> next(std::string_view rest = {});

    static constexpr std::size_t kLongestRest = 8;

private:
    const BodyBytes& mBytes;
    std::size_t mLeft;
    std::size_t mBlockSize;
    std::unique_ptr<char[]> mBlock;
};

} // namespace tarvomime
