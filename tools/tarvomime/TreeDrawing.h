// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <vector>

namespace tarvomime {
struct MessageContent;
}

namespace tarvomime::tool {

class Style;

/// How many levels below the message each of its parts lies.
std::vector<int> levelsOfParts(const MessageContent& content);

/// The part tree for people, a line for each part, printable.
///
/// Lines are bounded: parts below the 40th level all stand at its depth, with their level said.
QByteArray drawnTree(const MessageContent& content, const QByteArray& fallbackCharset,
                     const Style& style);

} // namespace tarvomime::tool
