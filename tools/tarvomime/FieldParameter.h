// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QString>
#include <string_view>

namespace tarvomime::tool {

/// The value of parameter `name` (lower-case) of a field body such as
/// `attachment; filename="a; b.txt"; size=3`, decoded; empty when it has none.
///
/// A reader of mail from everywhere needs more than the library's two readers of names, which take
/// the first parameter and no other: quoted strings may hold ";", the parameter may stand anywhere,
/// and it may come in the charset-carrying and numbered forms of RFC 2231, which win over the plain
/// one. Encoded words in a plain value are decoded; `charset` is for undeclared 8-bit text.
QString fieldParameter(const QCString& body, std::string_view name, int charset);

} // namespace tarvomime::tool
