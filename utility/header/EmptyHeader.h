// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Header.h"

namespace tarvomime {

/// `header`, or one without fields that all share where there is none: a handle whose message was
/// taken away reads as an empty message.
inline const EMAIL_Header& orEmpty(const EMAIL_Header* header)
{
    if (header != nullptr)
        return *header;
    static const EMAIL_Header empty;
    return empty;
}

} // namespace tarvomime
