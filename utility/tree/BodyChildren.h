// SPDX-License-Identifier: MIT
#pragma once

class EMAIL_Body;
class EMAIL_BodyPart;
class EMAIL_Message;
class QCString;

namespace tarvomime {

/// Replaces the enclosed message of `body` by a new one over the body's text, and returns it.
EMAIL_Message& createEnclosedMessage(EMAIL_Body& body);

/// Appends a new part with that text to `body`, and returns it.
EMAIL_BodyPart& createPart(EMAIL_Body& body, const QCString& text);

} // namespace tarvomime
