// SPDX-License-Identifier: MIT
#include "utility/text/Utf16Buffer.h"

#include <QtEndian>
#include <algorithm>
#include <cstring>
#include <limits>

namespace tarvomime {

namespace {

constexpr int kAsciiStep = 8;
constexpr int kLongestDoubled = std::numeric_limits<int>::max() / 2;

bool isAsciiStep(const char* bytes)
{
    quint64 word;
    std::memcpy(&word, bytes, kAsciiStep);
    return (word & 0x8080808080808080ULL) == 0;
}

ushort* widen(const char* begin, const char* end, ushort* out)
{
    return std::transform(begin, end, out, [](char c) { return static_cast<uchar>(c); });
}

// Two characters of two bytes each, as those of most alphabets are, in one step: what is in both
// halves of a word is done at once. Returns false when the next ones are others.
bool takePair(const char* bytes, ushort* out)
{
    const quint32 word = qFromLittleEndian<quint32>(bytes);
    // A lead without these bits would be C0 or C1: not the shortest form.
    const bool isLong = (word & 0x0000001E) != 0 && (word & 0x001E0000) != 0;
    if ((word & 0xC0E0C0E0) != 0x80C080C0 || !isLong)
        return false;
    const quint32 units = (word & 0x001F001F) << 6 | (word >> 8 & 0x003F003F);
    out[0] = static_cast<ushort>(units);
    out[1] = static_cast<ushort>(units >> 16);
    return true;
}

// One character of several bytes; `length` 0 when it is malformed (RFC 3629, section 4).
struct Utf8Character
{
    uint code = 0;
    int length = 0;
};

Utf8Character readCharacter(const uchar* bytes, std::ptrdiff_t left)
{
    const uchar lead = bytes[0];
    const int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || left < length)
        return {};
    // Not the shortest form, half of a surrogate pair, past the last plane.
    if ((lead == 0xE0 && bytes[1] < 0xA0) || (lead == 0xED && bytes[1] > 0x9F) ||
        (lead == 0xF0 && bytes[1] < 0x90) || (lead == 0xF4 && bytes[1] > 0x8F))
        return {};
    uint code = lead & (0x7F >> length);
    for (int i = 1; i < length; ++i) {
        if ((bytes[i] & 0xC0) != 0x80)
            return {};
        code = code << 6 | (bytes[i] & 0x3F);
    }
    return {code, length};
}

ushort* writeCharacter(uint code, ushort* out)
{
    if (!QChar::requiresSurrogates(code)) {
        *out++ = static_cast<ushort>(code);
        return out;
    }
    *out++ = QChar::highSurrogate(code);
    *out++ = QChar::lowSurrogate(code);
    return out;
}

} // namespace

ushort* Utf16Buffer::extend(int count)
{
    const int start = size();
    const int needed = start + count;
    // Without room to spare each of many small pieces would move all those before it.
    const int capacity = static_cast<int>(mUnits.capacity());
    if (needed > capacity)
        mUnits.reserve(std::max(needed, 2 * std::min(capacity, kLongestDoubled)));
    mUnits.resize(needed);
    return mUnits.data() + start;
}

void Utf16Buffer::append(const QString& text)
{
    std::copy(text.utf16(), text.utf16() + text.size(), extend(static_cast<int>(text.size())));
}

void Utf16Buffer::appendLatin1(std::string_view bytes)
{
    const char* begin = bytes.data();
    widen(begin, begin + bytes.size(), extend(static_cast<int>(bytes.size())));
}

void Utf16Buffer::appendUtf8(std::string_view bytes)
{
    if (!appendValidUtf8(bytes))
        append(QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size())));
}

// Leaves alone what the string type treats in a way of its own: malformed bytes and a mark of the
// byte order at the start.
bool Utf16Buffer::appendValidUtf8(std::string_view bytes)
{
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF")
        return false;
    const int start = size();
    const char* next = bytes.data();
    const char* const end = next + bytes.size();
    ushort* out = extend(static_cast<int>(bytes.size()));
    while (next != end) {
        if (end - next >= 4 && takePair(next, out)) {
            out += 2;
            next += 4;
        } else if (end - next >= kAsciiStep && isAsciiStep(next)) {
            out = widen(next, next + kAsciiStep, out);
            next += kAsciiStep;
        } else if (static_cast<uchar>(*next) < 0x80) {
            *out++ = static_cast<uchar>(*next++);
        } else {
            const auto character = readCharacter(reinterpret_cast<const uchar*>(next), end - next);
            if (character.length == 0) {
                mUnits.resize(start);
                return false;
            }
            out = writeCharacter(character.code, out);
            next += character.length;
        }
    }
    mUnits.resize(static_cast<int>(out - mUnits.constData()));
    return true;
}

} // namespace tarvomime
