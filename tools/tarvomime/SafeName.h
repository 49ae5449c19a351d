// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarvomime::tool {

/// A name for a new file, made of one that a message asks for.
///
/// The result is a plain name on every system: only what follows the last "/" or "\", without
/// control characters and the invisible ones that change a text's direction, without "<>:"|?*",
/// not hidden (no leading "."), not like an option (no leading "-"), none of the names that mean a
/// device, at most 200 bytes of UTF-8 with the extension kept. Where nothing is left it is made of
/// `fallback`, in the same way.
QString safeName(const QString& wanted, const QString& fallback);

/// The name for the `copy`th file of the same name: "a (2).txt". 1 gives the name itself.
QString numberedName(const QString& name, int copy);

} // namespace tarvomime::tool
