// SPDX-License-Identifier: MIT
#pragma once

#include "utility/codec/MediaTypes.h"

class EMAIL_Entity;

namespace tarvomime {

/// What the entity's Content-Type says; text/plain without the field (RFC 2045, section 5.2).
MediaType mediaTypeOf(const EMAIL_Entity& entity);

/// The first part of a container; null for an empty one and for everything else.
const EMAIL_Entity* firstSubPart(const EMAIL_Entity& entity);

} // namespace tarvomime
