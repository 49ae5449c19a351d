// SPDX-License-Identifier: MIT
#include "utility/text/Tokens.h"

#include "types/Ascii.h"

#include <utility>

namespace tarvomime {

namespace {

std::string_view piece(std::string_view text, bool strip)
{
    return strip ? trimmed(text) : text;
}

} // namespace

Sides sidesOfFirst(std::string_view separator, std::string_view source, bool strip)
{
    const std::size_t position =
        separator.size() == 1 ? source.find(separator.front()) : source.find(separator);
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
    PieceReader reader(separator, source, strip);
    while (std::optional<QCString> next = reader.take())
        pieces.append(*std::move(next));
    return pieces;
}

std::optional<QCString> PieceReader::take()
{
    // An empty separator would be found in place for ever.
    int found = mSeparator.isEmpty() ? -1 : mSource.find(mSeparator, mPosition);
    while (found >= 0) {
        const int start = std::exchange(mPosition, found + mSeparator.length());
        if (found > start)
            return mSource.mid(start, found - start);
        found = mSource.find(mSeparator, mPosition);
    }
    const std::string_view rest = mSource.view().substr(static_cast<std::size_t>(mPosition));
    mPosition = mSource.length();
    if (rest.empty())
        return std::nullopt;
    return mSource.slice(piece(rest, mStrip));
}

void stripChar(char c, const QCString& source, QCString& out)
{
    if (source.length() <= 2)
        return;
    const std::string_view text = source.view();
    const std::size_t first = text.find_first_not_of(c);
    out = first == std::string_view::npos
              ? source
              : source.slice(text.substr(first, text.find_last_not_of(c) - first + 1));
}

QCString withoutQuotes(const QCString& value)
{
    QCString trimmed = value;
    stripChar('"', value, trimmed);
    return trimmed;
}

} // namespace tarvomime
