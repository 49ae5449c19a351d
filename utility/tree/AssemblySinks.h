// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "utility/tree/TextBuilder.h"

#include <memory>
#include <optional>
#include <string_view>

class EMAIL_BaseComponent;
class EMAIL_Body;
class EMAIL_Header;
class QFile;

/// Where the walk over a tree puts the text of what it passes. A tree in memory is walked twice:
/// the first time everything that is not walked is assembled and all is measured, the second time
/// the text is written. So nothing is built that would be too long, and nothing is moved once it is
/// written.
namespace tarvomime {

/// Assembles headers and foreign components, and adds up how long the whole would be.
class MeasuringAssembly
{
public:
    static constexpr bool kInMemory = true;

    explicit MeasuringAssembly(int limit = QCString::longestLength) : mLimit(limit) {}

    /// False, and nothing added, when the whole would be longer than the limit.
    bool write(std::string_view text);
    /// Assembles the header and adds its text, which is the result, good until the header is
    /// assembled again; nothing when it refuses or the whole would be too long.
    std::optional<std::string_view> writeHeader(EMAIL_Header& header);
    /// Lets a component of an application's own class assemble itself, and adds its text.
    bool writeForeign(EMAIL_BaseComponent& component);
    /// Adds the body's text as it stands; the bytes of a file-backed body stay in their file.
    bool writeLeaf(const EMAIL_Body& body, const EMAIL_Header& header);
    int position() const { return mLength; }
    void begin(EMAIL_BaseComponent&) {}
    void handOut(EMAIL_BaseComponent&, int) {}

private:
    int mLimit;
    int mLength = 0;
};

/// Writes into one buffer what was measured before, and gives every component its slice of it.
class MemoryAssembly
{
public:
    static constexpr bool kInMemory = true;

    explicit MemoryAssembly(int length) : mText(length) {}

    /// False, and nothing written, when this is more than was measured: then an application's own
    /// component has changed what was measured before it.
    bool write(std::string_view text) { return mText.write(text); }
    /// Writes the header's text, and makes it and its fields' lines slices of the whole.
    std::optional<std::string_view> writeHeader(EMAIL_Header& header);
    bool writeForeign(EMAIL_BaseComponent& component);
    bool writeLeaf(const EMAIL_Body& body, const EMAIL_Header& header);
    int position() const { return mText.position(); }
    void begin(EMAIL_BaseComponent&) {}
    /// The text of `component` runs from `start` to the current position.
    void handOut(EMAIL_BaseComponent& component, int start);

private:
    TextBuilder mText;
};

/// Streams assembled text into a file in blocks.
class FileAssembly
{
public:
    /// No component's own `assemble` takes a file: all but headers and fields are walked.
    static constexpr bool kInMemory = false;

    explicit FileAssembly(QFile& file);

    bool write(std::string_view text);
    /// Assembles the header and writes its text, which is the result unless the header or the file
    /// refused.
    std::optional<std::string_view> writeHeader(EMAIL_Header& header);
    /// Writes the body: from memory as it is; from its file either the stored range and CR LF, or,
    /// where the file holds raw content, all of it in the header's transfer encoding.
    bool writeLeaf(const EMAIL_Body& body, const EMAIL_Header& header);
    int position() const { return 0; }
    /// The text goes to the file only.
    void begin(EMAIL_BaseComponent& component);
    void handOut(EMAIL_BaseComponent&, int) {}
    /// Writes what is gathered, at the end also that of a text which could not be completed, and
    /// tells whether the file has taken everything.
    bool flush();

private:
    bool writeFileBody(const EMAIL_Body& body, const EMAIL_Header& header);

    QFile& mFile;
    // Null when there was no memory for it.
    std::unique_ptr<char[]> mBlock;
    int mUsed = 0;
};

} // namespace tarvomime
