// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "types/QValueList.h"

#include <optional>
#include <string_view>

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
QValueList<QCString> splitAtEvery(const QCString& separator, const QCString& source, bool strip);
void stripChar(char c, const QCString& source, QCString& out);

/// A parameter's value without the double quotes around it. One or two bytes, which `stripChar`
/// leaves alone, come back as they are: a value is never lost.
QCString withoutQuotes(const QCString& value);

} // namespace tarvomime
