// SPDX-License-Identifier: MIT
#include "utility/text/Tokens.h"

#include "types/Ascii.h"

namespace tarvomime {

namespace {

std::string_view piece(std::string_view text, bool strip)
{
    return strip ? trimmed(text) : text;
}

} // namespace

Sides sidesOfFirst(std::string_view separator, std::string_view source, bool strip)
{
    const std::size_t position = source.find(separator);
    if (position == std::string_view::npos)
        return {piece(source, strip), std::nullopt};
    return {piece(source.substr(0, position), strip),
            piece(source.substr(position + separator.size()), strip)};
}

void splitAtFirst(const QCString& separator, const QCString& source, QCString& left,
                  QCString& right, bool strip)
{
    if (source.isEmpty())
        return;
    // An output may be the source or the separator itself.
    const QCString text = source;
    const Sides sides = sidesOfFirst(separator.view(), text.view(), strip);
    left = text.slice(sides.left);
    if (sides.right)
        right = text.slice(*sides.right);
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
    const std::string_view rest = source.view().substr(static_cast<std::size_t>(position));
    if (!rest.empty())
        pieces.append(source.slice(piece(rest, strip)));
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
