// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

namespace tarvomime {

/// The zone of a date in minutes east of UTC (RFC 5322, sections 3.3 and 4.3). `token` is not
/// empty and in lower case; what is not known counts as UTC.
int zoneOffset(const QCString& token);

} // namespace tarvomime
