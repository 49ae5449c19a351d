// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace tarvomime {

/// Decodes UTF-7 (RFC 2152); false, with `out` left alone, only for an empty `bytes`.
bool utf7ToUnicode(std::string_view bytes, QString& out);

} // namespace tarvomime
