// SPDX-License-Identifier: MIT
#pragma once

namespace tarvomime {

/// Makes the C library's local zone the one that TZ or, without it, the system's file names now.
///
/// 1. Without TZ the file is looked at once a second at most: the C library asks the system each
///    time, which took half the time of reading a small message.
void followZone();

} // namespace tarvomime
