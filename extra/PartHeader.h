// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class EMAIL_Entity;

namespace tarvomime {

/// "type/subtype" in lower case; "text/plain" for a part that does not say.
QByteArray typeNameOf(const EMAIL_Entity& entity);

/// A parameter of Content-Type, in plain ASCII; empty without one.
QByteArray typeParameter(const EMAIL_Entity& entity, const char* name);

/// Content-Id without its angle brackets.
QByteArray contentIdOf(const EMAIL_Entity& entity);

/// Whether Content-Disposition asks to show the part apart from the text.
bool saysAttachment(const EMAIL_Entity& entity);

/// Whether the part asks for a file name.
bool isNamed(const EMAIL_Entity& entity);

/// Whether the part's type lets it hold parts: multipart, or one of the two WAP containers.
bool isContainerType(const QByteArray& type);

/// Whether text of this type is HTML.
bool isHtmlType(const QByteArray& type);

/// Whether the part's type lets it enclose a whole message.
bool isMessageType(const QByteArray& type);

} // namespace tarvomime
