// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "utility/EMAIL_Numbers.h"

namespace tarvomime {

// Names of media types and subtypes and their numbers, both ways: the rules behind
// `EMAIL_Util::typeStrToEnum` and its neighbours.

int mediaTypeFromName(const QCString& name);
bool writeMediaTypeName(int type, QCString& name);
int subtypeFromName(const QCString& name);
bool writeSubtypeName(int subtype, QCString& name);

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

constexpr bool isReport(MediaType media)
{
    return media.type == TYPE_MULTIPART && media.subType == SUBTYPE_REPORT;
}

/// Whether a media type holds parts: multipart, or one of the two WAP containers, which are cut at
/// their boundary lines in the same way although their type is application.
constexpr bool isContainer(MediaType media)
{
    return media.type == TYPE_MULTIPART ||
           (media.type == TYPE_APPLICATION && (media.subType == SUBTYPE_WAP_MULTIPART_RELATED ||
                                               media.subType == SUBTYPE_WAP_MULTIPART_MIXED));
}

} // namespace tarvomime
