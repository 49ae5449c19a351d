// SPDX-License-Identifier: MIT
#include "utility/codec/Tokens.h"

namespace tarvomime {

namespace {

QCString piece(const QCString& text, bool strip)
{
    return strip ? text.stripWhiteSpace() : text;
}

} // namespace

void splitAtFirst(const QCString& separator, const QCString& source, QCString& left,
                  QCString& right, bool strip)
{
    if (source.isEmpty())
        return;
    // An output may be the source itself.
    const QCString text = source;
    const int position = text.find(separator);
    if (position < 0) {
        left = piece(text, strip);
        return;
    }
    const int rest = position + separator.length();
    left = piece(text.left(position), strip);
    right = piece(text.mid(rest), strip);
}

QValueList<QCString> splitAtEvery(const QCString& separator, const QCString& source, bool strip)
{
    QValueList<QCString> pieces;
    int position = 0;
    // An empty separator would be found in place for ever.
    int found = separator.isEmpty() ? -1 : source.find(separator);
    while (found >= 0) {
        if (found > position)
            pieces.append(source.mid(position, found - position));
        position = found + separator.length();
        found = source.find(separator, position);
    }
    const QCString rest = source.mid(position);
    if (!rest.isEmpty())
        pieces.append(piece(rest, strip));
    return pieces;
}

void stripChar(char c, const QCString& source, QCString& out)
{
    if (source.length() <= 2)
        return;
    int start = 0;
    while (start < source.length() && source[start] == c)
        ++start;
    if (start == source.length()) {
        out = source;
        return;
    }
    int end = source.length() - 1;
    while (source[end] == c)
        --end;
    out = source.mid(start, end - start + 1);
}

QCString withoutQuotes(const QCString& value)
{
    QCString trimmed = value;
    stripChar('"', value, trimmed);
    return trimmed;
}

} // namespace tarvomime
