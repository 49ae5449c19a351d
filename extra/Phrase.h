// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarvomime {

/// A display name as every reader understands it: plain words as they are, anything else as encoded
/// words in UTF-8, folded onto lines of their own where there are several. It is ASCII and holds no
/// "," or ":", whatever the name does.
QString encodedPhrase(const QString& name);

} // namespace tarvomime
