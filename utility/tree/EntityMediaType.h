// SPDX-License-Identifier: MIT
#pragma once

#include "utility/codec/MediaTypes.h"

class EMAIL_ContentType;
class EMAIL_Entity;
class EMAIL_Header;

namespace tarvomime {

/// What the entity's Content-Type says; text/plain without the field (RFC 2045, section 5.2).
MediaType mediaTypeOf(const EMAIL_Entity& entity);

/// Reads the text of a Content-Type field of another class, which an application has added under
/// this name and which stays the application's. False where the field is of the library's class, or
/// is not there.
bool readForeignType(const EMAIL_Header& header, EMAIL_ContentType& read);

/// The first part of a container; null for an empty one and for everything else.
const EMAIL_Entity* firstSubPart(const EMAIL_Entity& entity);

} // namespace tarvomime
