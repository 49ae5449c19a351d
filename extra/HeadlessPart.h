// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class EMAIL_Entity;

namespace tarvomime {

/// Whether a part of a multipart has no header, though parsing gave it one: an empty line follows
/// its delimiter, which is skipped, and its first line holds a colon or is its last. Programs that
/// report failed deliveries begin so: "The original message was received at Mon, 3 Jun 2024
/// 10:15:07". No name of a field holds blanks, and where a field says what the part is there is a
/// header.
bool isHeadless(const EMAIL_Entity& entity);

/// The text of such a part; `body` is what parsing left for its body.
QByteArray headlessText(const EMAIL_Entity& entity, const QByteArray& body);

} // namespace tarvomime
