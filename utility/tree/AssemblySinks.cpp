// SPDX-License-Identifier: MIT
#include "utility/tree/AssemblySinks.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/codec/TransferEncoding.h"
#include "utility/file/BodyBytes.h"
#include "utility/text/RefusedText.h"
#include "utility/tree/WritingOrder.h"

#include <QFile>

namespace tarvomime {

namespace {

constexpr std::size_t blockSize = 32768;

// A field's own line goes where the header's text holds the same. The others keep theirs:
// assembling a body may have put a new Content-Type field in the place of one of another class.
void handOutFields(EMAIL_Header& header)
{
    int start = 0;
    for (EMAIL_Field* field : writingOrder(header)) {
        const QCString line = header.mString.mid(start, field->mString.length());
        if (!line.isEmpty() && line == field->mString)
            field->mString = line;
        start += line.length();
    }
}

} // namespace

bool MemoryAssembly::write(std::string_view text)
{
    if (static_cast<qint64>(text.size()) > mLimit - position())
        return false;
    mBuffer.append(text.data(), static_cast<int>(text.size()));
    return true;
}

std::optional<std::string_view> MemoryAssembly::writeHeader(EMAIL_Header& header)
{
    const auto start = static_cast<int>(position());
    for (EMAIL_Field* field : writingOrder(header)) {
        field->assemble();
        if (isRefused(field->mString) || !write(field->mString.view()))
            return std::nullopt;
    }
    const auto end = static_cast<int>(position());
    mHeaders.push_back({&header, start, end});
    return std::string_view(mBuffer.constData() + start, static_cast<std::size_t>(end - start));
}

bool MemoryAssembly::writeLeaf(const EMAIL_Body& body, const EMAIL_Header&)
{
    return !isRefused(body.mString) && write(body.mString.view());
}

void MemoryAssembly::handOut(EMAIL_BaseComponent& component, qint64 start)
{
    mSlices.push_back({&component, static_cast<int>(start), static_cast<int>(position())});
}

bool MemoryAssembly::finish(bool isComplete)
{
    if (!isComplete)
        return false;
    const QCString text =
        mBuffer.isNull() ? QCString::fromLiteral("") : QCString::fromBytes(mBuffer);
    for (const HeaderSlice& slice : mHeaders) {
        slice.header->mString = text.mid(slice.start, slice.end - slice.start);
        handOutFields(*slice.header);
    }
    for (const Slice& slice : mSlices)
        slice.component->mString = text.mid(slice.start, slice.end - slice.start);
    return true;
}

FileAssembly::FileAssembly(QFile& file) : mFile(file)
{
    mBlock.reserve(static_cast<int>(blockSize));
}

bool FileAssembly::writeBlock(std::string_view block)
{
    const auto size = static_cast<qint64>(block.size());
    // Qt warns on the console about a write to a file that is not open for writing.
    return mFile.isWritable() && mFile.write(block.data(), size) == size &&
           mFile.error() == QFile::NoError;
}

bool FileAssembly::flushBlock()
{
    if (mBlock.isEmpty())
        return mFile.isWritable();
    const bool written = writeBlock({mBlock.constData(), static_cast<std::size_t>(mBlock.size())});
    mBlock.resize(0);
    return written;
}

bool FileAssembly::write(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t room = blockSize - static_cast<std::size_t>(mBlock.size());
        const std::string_view piece = text.substr(0, room);
        text.remove_prefix(piece.size());
        if (piece.size() == blockSize) {
            if (!writeBlock(piece))
                return false;
            continue;
        }
        mBlock.append(piece.data(), static_cast<int>(piece.size()));
        if (piece.size() == room && !flushBlock())
            return false;
    }
    return true;
}

std::optional<std::string_view> FileAssembly::writeHeader(EMAIL_Header& header)
{
    header.assemble();
    const std::string_view text = header.mString.view();
    return !isRefused(header.mString) && write(text) ? std::optional(text) : std::nullopt;
}

bool FileAssembly::writeLeaf(const EMAIL_Body& body, const EMAIL_Header& header)
{
    if (body.mInMemory)
        return !isRefused(body.mString) && write(body.mString.view());
    return body.mLength == 0 || writeFileBody(body, header);
}

bool FileAssembly::writeFileBody(const EMAIL_Body& body, const EMAIL_Header& header)
{
    // Raw content is the whole file, whatever the offset says: it was attached, not cut out.
    const BodyBytes stored(body.mFile, body.mEncoded ? body.mOffset : 0, body.mLength);
    if (!body.mEncoded)
        return flushBlock() && encodeTransfer(stored, &mFile, header.getCte()) == 0;
    for (BodyBlocks blocks(stored); !blocks.atEnd();) {
        const auto block = blocks.next();
        if (!block || !write(*block))
            return false;
    }
    return write("\r\n");
}

bool FileAssembly::finish(bool isComplete)
{
    const bool isWritten = flushBlock() && mFile.flush() && mFile.error() == QFile::NoError;
    return isWritten && isComplete;
}

} // namespace tarvomime
