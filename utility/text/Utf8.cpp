// SPDX-License-Identifier: MIT
#include "utility/text/Utf8.h"

#include "utility/text/Room.h"

#include <QtEndian>

namespace tarvomime {

namespace {

constexpr int kLongestOfUnit = 3;

char lead(uint mark, uint bits)
{
    return static_cast<char>(mark | bits);
}

char trail(uint bits)
{
    return static_cast<char>(0x80 | (bits & 0x3F));
}

// A character of `units` units; none when it is half of a pair.
struct Utf16Character
{
    uint code = 0;
    int units = 0;
};

Utf16Character readCharacter(const QChar* next, const QChar* end)
{
    if (!next->isSurrogate())
        return {next->unicode(), 1};
    if (next->isLowSurrogate() || end - next < 2 || !next[1].isLowSurrogate())
        return {};
    return {QChar::surrogateToUcs4(next[0], next[1]), 2};
}

char* writeCharacter(uint code, char* out)
{
    if (code < 0x80) {
        *out++ = static_cast<char>(code);
        return out;
    }
    if (code < 0x800) {
        *out++ = lead(0xC0, code >> 6);
    } else if (!QChar::requiresSurrogates(code)) {
        *out++ = lead(0xE0, code >> 12);
        *out++ = trail(code >> 6);
    } else {
        *out++ = lead(0xF0, code >> 18);
        *out++ = trail(code >> 12);
        *out++ = trail(code >> 6);
    }
    *out++ = trail(code);
    return out;
}

// Two units that take two bytes each, as those of most alphabets do, in one step: what is in both
// halves of a word is done at once. Returns false when the next ones are others.
bool putPair(const QChar* units, char* out)
{
    const quint32 word = units[0].unicode() | quint32{units[1].unicode()} << 16;
    const bool areBeyondAscii = (word & 0x0780) != 0 && (word & 0x07800000) != 0;
    if ((word & 0xF800F800) != 0 || !areBeyondAscii)
        return false;
    const quint32 leads = word >> 6 & 0x001F001F;
    const quint32 trails = (word & 0x003F003F) << 8;
    qToLittleEndian<quint32>(0x80C080C0 | leads | trails, out);
    return true;
}

} // namespace

std::optional<QByteArray> utf8Of(const QString& text)
{
    auto bytes = roomFor<QByteArray>(kLongestOfUnit * static_cast<quint64>(text.size()));
    if (!bytes)
        return std::nullopt;
    char* const start = bytes->data();
    char* out = start;
    const QChar* next = text.cbegin();
    const QChar* const end = text.cend();
    while (next != end) {
        if (end - next >= 2 && putPair(next, out)) {
            next += 2;
            out += 4;
            continue;
        }
        const auto [code, units] = readCharacter(next, end);
        if (units == 0)
            return std::nullopt;
        out = writeCharacter(code, out);
        next += units;
    }
    bytes->truncate(static_cast<int>(out - start));
    return bytes;
}

} // namespace tarvomime
