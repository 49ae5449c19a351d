// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"
#include "types/QCString.h"

#include <QByteArray>
#include <QString>
#include <string_view>

namespace tarvomime {

/// The value of parameter `name` (lower-case) of a field body such as
/// `attachment; filename="a; b.txt"; size=3`, decoded; empty when it has none.
///
/// A reader of mail from everywhere needs more than the library's two readers of names, which take
/// the first parameter and no other. Here:
///
/// 1. Quoted strings may hold ";", the parameter may stand anywhere, and the first of its name
///    counts.
/// 2. The charset-carrying and numbered forms of RFC 2231 win over the plain one, whatever their
///    order and even where a section is missing. Only in them "%41" stands for "A".
/// 3. Encoded words are decoded (`decodedWords`), in sections put together too.
/// 4. A declared charset that cannot be true does not hold, and undeclared bytes are UTF-8 or else
///    text in `fallbackCharset`.
/// 5. A quote that nothing but a value follows belongs to the value, and a value whose closing
///    quote is missing ends at the next ";".
TARVOMIME_EXTRA_EXPORT QString fieldParameter(const QCString& body, std::string_view name,
                                              const QByteArray& fallbackCharset = "windows-1252");

} // namespace tarvomime
