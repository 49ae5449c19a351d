// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

namespace tarvomime::tool {

/// The library refuses texts that are so long.
constexpr qint64 kTooLong = std::numeric_limits<int>::max() - 64;
constexpr const char* kTooLongProblem = "is too large (2 GiB or more)";

/// Which files open: those that hold a text, also empty ones, or also those that are too long for
/// one text.
enum class Sizes { Text, OrEmpty, OrTooLong };

/// A whole file, read where it is small and mapped where not, and never changed; "-" is standard
/// input, read to its end.
///
/// Only regular files open; a FIFO is refused at once instead of being waited for. A NUL follows
/// the last byte.
class InputFile
{
public:
    explicit InputFile(const std::string& path, Sizes sizes = Sizes::Text);
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    bool isOpen() const { return mProblem.empty(); }
    /// Why the file did not open, in words for its user.
    const std::string& problem() const { return mProblem; }
    const std::string& path() const { return mPath; }
    /// The path, or "standard input".
    const std::string& name() const { return mName; }
    const char* data() const { return mData; }
    qint64 size() const { return mSize; }
    std::string_view bytes() const { return {mData, static_cast<std::size_t>(mSize)}; }

    /// The name by which the library can open this file again to read bodies from it; empty when it
    /// cannot: it opens files for reading and writing, and Qt must be able to spell the name.
    QString reopenPath() const;
    /// Gives the memory of a mapping's first `length` bytes back; reading them again is possible,
    /// from the page cache.
    void release(qint64 length) const;

private:
    void open(Sizes sizes);
    void load(int descriptor, Sizes sizes);
    bool read(int descriptor, std::size_t size);
    bool map(int descriptor, std::size_t size);

    std::string mPath;
    std::string mName;
    std::string mProblem;
    const char* mData = "";
    qint64 mSize = 0;
    std::unique_ptr<char[]> mRead;
    // How much is mapped: the file and what follows it.
    std::size_t mMapped = 0;
};

} // namespace tarvomime::tool
