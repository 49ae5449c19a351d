// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"

#include <QString>

namespace tarvomime {

/// A name for a new file, made of one that a message asks for.
///
/// The result is a plain name on every system: only what follows the last "/" or "\", without
/// control characters and the invisible ones that change a text's direction, without "<>:"|?*",
/// not hidden (no leading "."), not like an option (no leading "-"), none of the names that mean a
/// device, at most 201 bytes of UTF-8 with the extension kept. Where nothing is left it is made of
/// `fallback`, in the same way, and where nothing is left of that either it is "part".
TARVOMIME_EXTRA_EXPORT QString safeFileName(const QString& wanted, const QString& fallback = {});

/// `name` as a new part can bear it, which writes its names in quotes as they are: "'" stands for
/// each double quote and "_" for each backslash; line ends and other control characters are left
/// out. Nothing of it can end the field that it stands in.
TARVOMIME_EXTRA_EXPORT QString attachableName(const QString& name);

/// The name for the `copy`th file of the same name: "a (2).txt". 1 gives the name itself.
TARVOMIME_EXTRA_EXPORT QString numberedFileName(const QString& name, int copy);

} // namespace tarvomime
