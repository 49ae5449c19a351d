// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_MultiPart.h"

namespace tarvomime {

/// A part whose body could not be had has a length but no bytes in memory; one that an application
/// has given more bytes than a text can have is as good as that. It is carried from part to part
/// and into the messages, whose assembly fails, so that no body is lost in silence; setting a body
/// ends it.
inline void refuseBody(EMAIL_MultiPart& part)
{
    part.mBodyData.clear();
    part.mBodyLength = 1;
    part.mInMemory = true;
    part.mEncoded = true;
}

inline bool isBodyRefused(const EMAIL_MultiPart& part)
{
    const bool isLost = part.mBodyData.isEmpty() && part.mBodyLength > 0;
    return part.mInMemory && (isLost || part.mBodyData.size() > QCString::longestLength);
}

} // namespace tarvomime
