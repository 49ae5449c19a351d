// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace tarvomime {

/// Decodes UTF-7 (RFC 2152); false for an empty `bytes`, with `out` left alone, and where there is
/// no room for the text, with an empty one.
bool utf7ToUnicode(std::string_view bytes, QString& out);

} // namespace tarvomime
