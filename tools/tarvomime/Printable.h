// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <string_view>

namespace tarvomime::tool {

/// Text from a message, made harmless for a terminal: UTF-8 in which control characters (C0, DEL,
/// C1), the marks that turn the direction of whole lines round, and bytes that are no UTF-8 stand
/// as escapes ("\x1B", "\u202E").
///
/// Line feeds and tabs stay, the CR of a CR LF goes.
QByteArray printableText(std::string_view text);
QByteArray printableText(const QString& text);

/// The same on one line: line ends and tabs become "\n", "\r" and "\t" too.
QByteArray printableLine(std::string_view text);
QByteArray printableLine(const QString& text);

} // namespace tarvomime::tool
