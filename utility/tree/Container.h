// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Util.h"

namespace tarvomime {

constexpr int SUBTYPE_WAP_MULTIPART_RELATED = 71;
constexpr int SUBTYPE_WAP_MULTIPART_MIXED = 72;

/// Whether a media type holds parts: multipart, or one of the two WAP containers, which are cut at
/// their boundary lines in the same way although their type is application.
constexpr bool isContainer(int type, int subType)
{
    return type == TYPE_MULTIPART ||
           (type == TYPE_APPLICATION &&
            (subType == SUBTYPE_WAP_MULTIPART_RELATED || subType == SUBTYPE_WAP_MULTIPART_MIXED));
}

} // namespace tarvomime
