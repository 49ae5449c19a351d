// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class EMAIL_MIME;

namespace tarvomime::tool {

/// The text that a reader shows for the message. False when its body cannot be read; `text` stays
/// empty for a message without such a text.
///
/// `charset` is for text that names none. A message without the parameter reads as us-ascii, which
/// would leave no room for that: it is given the charset first.
bool readMessageText(EMAIL_MIME& message, int charset, QString& text);

} // namespace tarvomime::tool
