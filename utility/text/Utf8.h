// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace tarvomime {

/// The bytes of a short text in UTF-8; nothing when it is no valid UTF-16 or there is no room. For
/// what is long the string type's own conversion is faster.
std::optional<QByteArray> utf8Of(const QString& text);

} // namespace tarvomime
