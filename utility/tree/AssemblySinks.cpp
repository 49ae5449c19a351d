// SPDX-License-Identifier: MIT
#include "utility/tree/AssemblySinks.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"
#include "utility/codec/TransferEncoding.h"
#include "utility/file/BlockWriter.h"
#include "utility/file/BodyBytes.h"
#include "utility/text/Joined.h"
#include "utility/tree/HeaderAssembly.h"

#include <QFile>
#include <algorithm>
#include <new>
#include <typeinfo>
#include <utility>

namespace tarvomime {

namespace {

// A header of an application's own class assembles itself.
bool assembleAnyHeader(EMAIL_Header& header)
{
    if (typeid(header) == typeid(EMAIL_Header))
        return assembleHeader(header);
    header.assemble();
    return !isRefused(header.mString);
}

template <class Sink>
bool writeText(Sink& sink, const EMAIL_BaseComponent& component)
{
    return !isRefused(component.mString) && sink.write(component.mString.view());
}

} // namespace

bool MeasuringAssembly::write(std::string_view text)
{
    if (static_cast<qint64>(text.size()) > mLimit - mLength)
        return false;
    mLength += static_cast<int>(text.size());
    return true;
}

std::optional<std::string_view> MeasuringAssembly::writeHeader(EMAIL_Header& header)
{
    if (!assembleAnyHeader(header) || !write(header.mString.view()))
        return std::nullopt;
    return header.mString.view();
}

bool MeasuringAssembly::writeForeign(EMAIL_BaseComponent& component)
{
    component.assemble();
    return writeText(*this, component);
}

bool MeasuringAssembly::writeLeaf(const EMAIL_Body& body, const EMAIL_Header&)
{
    return writeText(*this, body);
}

std::optional<std::string_view> MemoryAssembly::writeHeader(EMAIL_Header& header)
{
    const int start = position();
    if (!write(header.mString.view()))
        return std::nullopt;
    moveHeader(header, mText.writtenFrom(0), start);
    return header.mString.view();
}

bool MemoryAssembly::writeForeign(EMAIL_BaseComponent& component)
{
    return writeText(*this, component);
}

bool MemoryAssembly::writeLeaf(const EMAIL_Body& body, const EMAIL_Header&)
{
    return writeText(*this, body);
}

void MemoryAssembly::handOut(EMAIL_BaseComponent& component, int start)
{
    component.mString = mText.writtenFrom(start);
}

FileAssembly::FileAssembly(QFile& file)
    : mFile(file), mBlock(new (std::nothrow) char[kBlockThreshold])
{
}

bool FileAssembly::flush()
{
    if (mUsed == 0)
        return mFile.isWritable() && flushedStatus(&mFile) == 0;
    return writeBlock(&mFile, mBlock.get(), std::exchange(mUsed, 0)) == 0;
}

bool FileAssembly::write(std::string_view text)
{
    if (mBlock == nullptr)
        return false;
    while (!text.empty()) {
        const std::string_view piece =
            text.substr(0, static_cast<std::size_t>(kBlockThreshold - mUsed));
        text.remove_prefix(piece.size());
        const auto length = static_cast<int>(piece.size());
        if (length == kBlockThreshold) {
            // A whole block need not be gathered.
            if (writeBlock(&mFile, piece.data(), length) != 0)
                return false;
            continue;
        }
        std::copy(piece.begin(), piece.end(), mBlock.get() + mUsed);
        mUsed += length;
        if (mUsed == kBlockThreshold && !flush())
            return false;
    }
    return true;
}

std::optional<std::string_view> FileAssembly::writeHeader(EMAIL_Header& header)
{
    if (!assembleAnyHeader(header) || !write(header.mString.view()))
        return std::nullopt;
    return header.mString.view();
}

bool FileAssembly::writeLeaf(const EMAIL_Body& body, const EMAIL_Header& header)
{
    if (body.mInMemory)
        return writeText(*this, body);
    return body.mLength == 0 || writeFileBody(body, header);
}

bool FileAssembly::writeFileBody(const EMAIL_Body& body, const EMAIL_Header& header)
{
    // Raw content is the whole file, whatever the offset says: it was attached, not cut out.
    const BodyBytes stored(body.mFile, body.mEncoded ? body.mOffset : 0, body.mLength);
    if (!body.mEncoded)
        return flush() && encodeTransfer(stored, &mFile, header.getCte()) == 0;
    for (BodyBlocks blocks(stored); !blocks.atEnd();) {
        const auto block = blocks.next();
        if (!block || !write(*block))
            return false;
    }
    return write("\r\n");
}

void FileAssembly::begin(EMAIL_BaseComponent& component)
{
    component.mString = QCString::fromLiteral("");
}

} // namespace tarvomime
