// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <algorithm>
#include <numeric>

/// How a text is cut into pieces that fit an encoded word: the whole remainder, its half, its
/// quarter and so on, whichever fits first. Positions and counts are in UTF-16 units.
namespace tarvomime {

inline bool isInsidePair(const QString& text, int position)
{
    return text.at(position - 1).isHighSurrogate() && text.at(position).isLowSurrogate();
}

/// Half of the `count` units from `position` on, never ending inside a surrogate pair: one unit
/// less then, or one more where that would leave none. At least one unit.
inline int halvedChunk(const QString& text, int position, int count)
{
    const int half = std::max(1, count / 2);
    if (half == count || !isInsidePair(text, position + half))
        return half;
    return half == 1 ? 2 : half - 1;
}

/// The length of the first chunk at `position` for which `fits(length)` holds, or of a single
/// character when not even that one fits.
template <class Fits>
int chunkLength(const QString& text, int position, Fits fits)
{
    int count = static_cast<int>(text.length()) - position;
    while (!fits(count)) {
        const int half = halvedChunk(text, position, count);
        if (half == count)
            break;
        count = half;
    }
    return count;
}

/// Bytes that `unit` adds to the UTF-8 form of valid UTF-16; each half of a pair adds two.
constexpr auto kUtf8Length = [](QChar unit) {
    const int isLong = unit.unicode() >= 0x80 ? 1 : 0;
    const int isLonger = unit.unicode() >= 0x800 && !unit.isSurrogate() ? 1 : 0;
    return 1 + isLong + isLonger;
};

template <class BytesOf>
int bytesOfUnits(const QString& text, int position, int count, BytesOf bytesOf)
{
    const QChar* unit = text.constData() + position;
    return std::accumulate(unit, unit + count, 0,
                           [bytesOf](int sum, QChar c) { return sum + bytesOf(c); });
}

} // namespace tarvomime
