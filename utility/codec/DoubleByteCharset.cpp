// SPDX-License-Identifier: MIT
#include "utility/codec/DoubleByteCharset.h"

#include "utility/EMAIL_Numbers.h"
#include "utility/codec/Charset.h"
#include "utility/text/Room.h"

#include <QTextCodec>
#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace tarvomime {

namespace {

constexpr unsigned char kAsciiEnd = 0x80;

// Made when the charset is first met: reading it off takes a millisecond.
template <int Charset>
const DoubleByteCharset* tableOf()
{
    static const auto table = [] {
        const QTextCodec* codec = codecOf(Charset);
        return codec == nullptr ? nullptr : DoubleByteCharset::readOff(*codec);
    }();
    return table.get();
}

QString decoded(const QTextCodec& codec, const QByteArray& bytes)
{
    const std::unique_ptr<QTextDecoder> decoder(codec.makeDecoder());
    return decoder->toUnicode(bytes);
}

bool isPlain(QChar unit)
{
    return !unit.isSurrogate() && unit != QChar(QChar::ReplacementCharacter);
}

bool readsAscii(const QTextCodec& codec)
{
    QByteArray ascii(kAsciiEnd, Qt::Uninitialized);
    std::iota(ascii.begin(), ascii.end(), '\0');
    // By its length: Qt 5 ends an array's text at the first NUL.
    const QString text = QString::fromLatin1(ascii.constData(), kAsciiEnd);
    return decoded(codec, ascii) == text && codec.fromUnicode(text) == ascii;
}

} // namespace

const DoubleByteCharset* DoubleByteCharset::of(int charset)
{
    switch (charset) {
    case CHARSET_GB2312: // read and written as its superset
    case CHARSET_GBK:
        return tableOf<CHARSET_GBK>();
    case CHARSET_BIG5:
        return tableOf<CHARSET_BIG5>();
    default:
        return nullptr;
    }
}

std::unique_ptr<const DoubleByteCharset> DoubleByteCharset::readOff(const QTextCodec& codec)
{
    if (!readsAscii(codec))
        return nullptr;
    std::unique_ptr<DoubleByteCharset> charset(new DoubleByteCharset);
    charset->readUnits(codec);
    charset->readBytes(codec);
    return charset;
}

// Every pair stands on a line of its own, so that one which is no character spoils no other.
void DoubleByteCharset::readUnits(const QTextCodec& codec)
{
    QByteArray pairs;
    for (int place = 0; place < kLeads * kTrails; ++place) {
        pairs.append(static_cast<char>(kFirstLead + place / kTrails));
        pairs.append(static_cast<char>(kFirstTrail + place % kTrails));
        pairs.append('\n');
    }
    const QString units = decoded(codec, pairs);
    const QChar* line = units.cbegin();
    for (ushort& unit : mUnits) {
        const QChar* const end = std::find(line, units.cend(), QLatin1Char('\n'));
        if (end == units.cend())
            return;
        if (end - line == 1 && isPlain(*line))
            unit = line->unicode();
        line = end + 1;
    }
}

// Several pairs may stand for one unit: what the codec writes decides.
void DoubleByteCharset::readBytes(const QTextCodec& codec)
{
    mPages.emplace_back().fill(kNone);
    QString lines;
    for (const ushort unit : mUnits)
        lines.append(QChar(unit)).append(QLatin1Char('\n'));
    const QByteArray written = codec.fromUnicode(lines);
    const char* line = written.cbegin();
    for (const ushort unit : mUnits) {
        const char* const end = std::find(line, written.cend(), '\n');
        if (end == written.cend())
            return;
        const auto lead = static_cast<unsigned char>(line[0]);
        const auto trail = static_cast<unsigned char>(line[1]);
        if (unit != kNone && end - line == 2 && unitOf(lead, trail) == unit)
            add(QChar(unit), static_cast<ushort>(lead << 8 | trail));
        line = end + 1;
    }
}

void DoubleByteCharset::add(QChar unit, ushort pair)
{
    unsigned char& page = mPageOf[unit.row()];
    if (page == 0) {
        page = static_cast<unsigned char>(mPages.size());
        mPages.emplace_back().fill(kNone);
    }
    mPages[page][unit.cell()] = pair;
}

ushort DoubleByteCharset::unitOf(unsigned char lead, unsigned char trail) const
{
    const int row = lead - kFirstLead;
    const int column = trail - kFirstTrail;
    if (row < 0 || row >= kLeads || column < 0 || column >= kTrails)
        return kNone;
    const int place = row * kTrails + column;
    return mUnits[static_cast<std::size_t>(place)];
}

std::optional<int> DoubleByteCharset::decode(std::string_view bytes, ushort* out) const
{
    ushort* next = out;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte < kAsciiEnd) {
            *next++ = byte;
            continue;
        }
        if (++i == bytes.size())
            return std::nullopt;
        const ushort unit = unitOf(byte, static_cast<unsigned char>(bytes[i]));
        if (unit == kNone)
            return std::nullopt;
        *next++ = unit;
    }
    return static_cast<int>(next - out);
}

bool DoubleByteCharset::encode(const QString& text, QByteArray& bytes) const
{
    auto room = roomFor<QByteArray>(2 * static_cast<quint64>(text.size()));
    if (!room)
        return false;
    bytes = *std::move(room);
    char* next = bytes.data();
    for (const QChar unit : text) {
        if (unit.unicode() < kAsciiEnd) {
            *next++ = static_cast<char>(unit.unicode());
            continue;
        }
        const ushort pair = mPages[mPageOf[unit.row()]][unit.cell()];
        if (pair == kNone)
            return false;
        *next++ = static_cast<char>(pair >> 8);
        *next++ = static_cast<char>(pair & 0xFF);
    }
    bytes.truncate(static_cast<int>(next - bytes.constData()));
    return true;
}

} // namespace tarvomime
