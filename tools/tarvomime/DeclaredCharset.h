// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class EMAIL_Message;

namespace tarvomime::tool {

/// Makes every plain text that names no charset name this one: what the user says outweighs what
/// the bytes look like. HTML has a word of its own to say.
void declareCharset(EMAIL_Message& message, const QByteArray& charset);

} // namespace tarvomime::tool
