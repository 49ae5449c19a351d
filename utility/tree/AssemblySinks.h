// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

class EMAIL_BaseComponent;
class EMAIL_Body;
class EMAIL_Header;
class QFile;

namespace tarvomime {

/// Gathers assembled text in one buffer; at the end every component gets its slice of it. A text of
/// 2 GiB or more is given up: then nothing is handed out.
class MemoryAssembly
{
public:
    /// Positions are of type int, and a byte array's own head counts towards its largest size too.
    static constexpr int longestText = std::numeric_limits<int>::max() - 64;

    explicit MemoryAssembly(int limit = longestText) : mLimit(limit) {}

    /// False, and nothing added, when the whole would be longer than the limit.
    bool write(std::string_view text);
    /// Assembles the fields and writes each as it comes, and notes where the header's text runs.
    /// That text, good until the next write, or nothing when it would be too long.
    std::optional<std::string_view> writeHeader(EMAIL_Header& header);
    /// Writes the body's text as it stands; the bytes of a file-backed body stay in their file.
    bool writeLeaf(const EMAIL_Body& body, const EMAIL_Header& header);
    qint64 position() const { return mBuffer.size(); }
    /// Notes that the text of `component` runs from `start` to the current position.
    void handOut(EMAIL_BaseComponent& component, qint64 start);
    /// Gives every noted component its slice, and the fields of every noted header theirs, if
    /// everything could be written.
    bool finish(bool isComplete);

private:
    struct Slice
    {
        EMAIL_BaseComponent* component;
        int start;
        int end;
    };
    struct HeaderSlice
    {
        EMAIL_Header* header;
        int start;
        int end;
    };

    qint64 mLimit;
    QByteArray mBuffer;
    std::vector<Slice> mSlices;
    std::vector<HeaderSlice> mHeaders;
};

/// Streams assembled text into a file in blocks.
class FileAssembly
{
public:
    explicit FileAssembly(QFile& file);

    bool write(std::string_view text);
    /// Assembles the header and writes its text, which is the result unless the file refused it.
    std::optional<std::string_view> writeHeader(EMAIL_Header& header);
    /// Writes the body: from memory as it is; from its file either the stored range and CR LF, or,
    /// where the file holds raw content, all of it in the header's transfer encoding.
    bool writeLeaf(const EMAIL_Body& body, const EMAIL_Header& header);
    qint64 position() const { return 0; }
    /// The text went to the file: components keep what they hold.
    void handOut(EMAIL_BaseComponent&, qint64) {}
    /// Writes what is left, also of a text that could not be completed, and tells whether the file
    /// has taken everything.
    bool finish(bool isComplete);

private:
    bool writeFileBody(const EMAIL_Body& body, const EMAIL_Header& header);
    bool writeBlock(std::string_view block);
    bool flushBlock();

    QFile& mFile;
    QByteArray mBlock;
};

} // namespace tarvomime
