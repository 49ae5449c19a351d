// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <algorithm>

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
inline int utf8Length(QChar unit)
{
    if (unit.unicode() < 0x80)
        return 1;
    return unit.unicode() < 0x800 || unit.isSurrogate() ? 2 : 3;
}

inline int utf8Length(const QString& text, int position, int count)
{
    int bytes = 0;
    for (int i = position; i < position + count; ++i)
        bytes += utf8Length(text.at(i));
    return bytes;
}

/// How many units from `position` on make no more than `longest` bytes of UTF-8.
inline int utf8Reach(const QString& text, int position, int longest)
{
    int reach = position;
    while (reach < text.length() && (longest -= utf8Length(text.at(reach))) >= 0)
        ++reach;
    return reach - position;
}

} // namespace tarvomime
