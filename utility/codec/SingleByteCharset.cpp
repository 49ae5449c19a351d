// SPDX-License-Identifier: MIT
#include "utility/codec/SingleByteCharset.h"

#include "utility/codec/Charset.h"
#include "utility/codec/CharsetNames.h"
#include "utility/text/Room.h"

#include <QTextCodec>
#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace tarvomime {

namespace {

using Tables = std::array<std::unique_ptr<const SingleByteCharset>, kCharsetCount>;

Tables makeTables()
{
    Tables tables;
    for (int charset = 0; charset < kCharsetCount; ++charset) {
        const QTextCodec* codec = isSingleByte(charset) ? codecOf(charset) : nullptr;
        if (codec != nullptr)
            tables[static_cast<std::size_t>(charset)] = SingleByteCharset::readOff(*codec);
    }
    return tables;
}

} // namespace

const SingleByteCharset* SingleByteCharset::of(int charset)
{
    static const Tables tables = makeTables();
    return tables[static_cast<std::size_t>(knownCharset(charset))].get();
}

std::unique_ptr<const SingleByteCharset> SingleByteCharset::readOff(const QTextCodec& codec)
{
    QByteArray bytes(256, Qt::Uninitialized);
    std::iota(bytes.begin(), bytes.end(), '\0');
    const std::unique_ptr<QTextDecoder> decoder(codec.makeDecoder());
    const QString units = decoder->toUnicode(bytes);
    const QByteArray written = codec.fromUnicode(units);
    if (units.size() != bytes.size() || written.size() != bytes.size())
        return nullptr;
    return std::unique_ptr<const SingleByteCharset>(new SingleByteCharset(units, written));
}

SingleByteCharset::SingleByteCharset(const QString& units, const QByteArray& written)
{
    std::copy(units.utf16(), units.utf16() + units.size(), mUnits.begin());
    mPages.emplace_back().fill(kNoByte);
    for (int i = 0; i < units.size(); ++i) {
        const auto byte = static_cast<unsigned char>(written.at(i));
        if (mUnits[byte] == units.at(i).unicode())
            add(units.at(i), byte);
    }
}

void SingleByteCharset::add(QChar unit, unsigned char byte)
{
    unsigned char& page = mPageOf[unit.row()];
    if (page == 0) {
        page = static_cast<unsigned char>(mPages.size());
        mPages.emplace_back().fill(kNoByte);
    }
    mPages[page][unit.cell()] = byte;
}

void SingleByteCharset::decode(std::string_view bytes, ushort* out) const
{
    std::transform(bytes.begin(), bytes.end(), out,
                   [this](char byte) { return mUnits[static_cast<unsigned char>(byte)]; });
}

bool SingleByteCharset::encode(const QString& text, QByteArray& bytes) const
{
    auto room = roomFor<QByteArray>(static_cast<quint64>(text.size()));
    if (!room)
        return false;
    bytes = *std::move(room);
    char* next = bytes.data();
    // What is written could be the table's own place, for all that the compiler knows.
    const Page* const pages = mPages.data();
    for (const QChar unit : text) {
        const short byte = pages[mPageOf[unit.row()]][unit.cell()];
        if (byte == kNoByte)
            return false;
        *next++ = static_cast<char>(byte);
    }
    return true;
}

} // namespace tarvomime
