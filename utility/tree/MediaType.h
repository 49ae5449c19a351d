// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Util.h"
#include "utility/Subtypes.h"

class EMAIL_Entity;

namespace tarvomime {

/// A media type by its numbers.
struct MediaType
{
    int type;
    int subType;
};

constexpr bool isPlainText(MediaType media)
{
    return media.type == TYPE_TEXT && media.subType == SUBTYPE_PLAIN;
}

constexpr bool isCalendar(MediaType media)
{
    return media.type == TYPE_TEXT && media.subType == SUBTYPE_CALENDAR;
}

constexpr bool isAlternative(MediaType media)
{
    return media.type == TYPE_MULTIPART && media.subType == SUBTYPE_ALTERNATIVE;
}

constexpr bool isRelated(MediaType media)
{
    return media.type == TYPE_MULTIPART && media.subType == SUBTYPE_RELATED;
}

/// What the entity's Content-Type says; text/plain without the field (RFC 2045, section 5.2).
MediaType mediaTypeOf(const EMAIL_Entity& entity);

/// The first part of a container; null for an empty one and for everything else.
const EMAIL_Entity* firstSubPart(const EMAIL_Entity& entity);

} // namespace tarvomime
