// SPDX-License-Identifier: MIT
#include "utility/tree/AssemblySinks.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"
#include "utility/codec/MappedFile.h"

#include <QFile>
#include <algorithm>

namespace tarvomime {

namespace {

constexpr std::size_t blockSize = 32768;

} // namespace

bool MemoryAssembly::write(std::string_view text)
{
    mBuffer.append(text.data(), static_cast<int>(text.size()));
    return true;
}

bool MemoryAssembly::writeLeaf(const EMAIL_Body& body, const EMAIL_Header&)
{
    return write(body.mString.view());
}

void MemoryAssembly::handOut(EMAIL_BaseComponent& component, qint64 start)
{
    mSlices.push_back({&component, start, position()});
}

bool MemoryAssembly::finish()
{
    const QCString text = QCString::fromBytes(mBuffer);
    for (const Slice& slice : mSlices)
        slice.component->mString =
            text.mid(static_cast<int>(slice.start), static_cast<int>(slice.end - slice.start));
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

bool FileAssembly::writeLeaf(const EMAIL_Body& body, const EMAIL_Header& header)
{
    if (body.mInMemory)
        return write(body.mString.view());
    return body.mLength == 0 || writeFileBody(body, header);
}

bool FileAssembly::writeFileBody(const EMAIL_Body& body, const EMAIL_Header& header)
{
    const MappedFile mapped(body.mFile);
    // Raw content is the whole file, whatever the offset says: it was attached, not cut out.
    const int offset = body.mEncoded ? body.mOffset : 0;
    if (!mapped.holds(offset, body.mLength))
        return false;
    const char* data = mapped.data() + offset;
    if (body.mEncoded)
        return write({data, static_cast<std::size_t>(body.mLength)}) && write("\r\n");
    return flushBlock() && EMAIL_Util::encWithCTE(data, body.mLength, &mFile, header.getCte()) == 0;
}

bool FileAssembly::finish()
{
    return flushBlock() && mFile.flush() && mFile.error() == QFile::NoError;
}

} // namespace tarvomime
