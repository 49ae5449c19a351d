// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "types/QValueList.h"

#include <optional>
#include <string_view>
#include <utility>

/// The rules behind `EMAIL_Util::split` and `EMAIL_Util::stripChar`. Pieces are slices of the
/// source.
namespace tarvomime {

/// The two sides of the first separator; without one, all is left of it.
struct Sides
{
    std::string_view left;
    std::optional<std::string_view> right;
};

Sides sidesOfFirst(std::string_view separator, std::string_view source, bool strip);
void splitAtFirst(const QCString& separator, const QCString& source, QCString& left,
                  QCString& right, bool strip);

/// Cuts a text at every separator, one piece at a time, for readers that keep few of them. Empty
/// pieces are dropped, and only the last one is trimmed.
class PieceReader
{
public:
    PieceReader(QCString separator, QCString source, bool strip)
        : mSeparator(std::move(separator)), mSource(std::move(source)), mStrip(strip)
    {
    }

    /// The next piece; nothing behind the last one.
    std::optional<QCString> take();

private:
    const QCString mSeparator;
    const QCString mSource;
    const bool mStrip;
    int mPosition = 0;
};

/// All the pieces of a `PieceReader`.
QValueList<QCString> splitAtEvery(const QCString& separator, const QCString& source, bool strip);
void stripChar(char c, const QCString& source, QCString& out);

/// A parameter's value without the double quotes around it. One or two bytes, which `stripChar`
/// leaves alone, come back as they are: a value is never lost.
QCString withoutQuotes(const QCString& value);

} // namespace tarvomime
