// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarvomime::tool {

/// How many cells of a terminal a text fills: two for the characters of East Asia and most emoji,
/// none for marks that are put over others. The C library's table says which.
int cellsOf(const QString& text);

/// The beginning of a text that fits into so many cells; a cut one ends in "…".
QString cutToCells(const QString& text, int cells);

/// The same, filled up with blanks.
QString column(const QString& text, int cells);

} // namespace tarvomime::tool
