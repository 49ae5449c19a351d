// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tarvomime {

/// Whether a codec may answer to this name, apart from case and punctuation. Asking Qt for one that
/// nobody knows takes a hundred microseconds and prints a line, once for each word of a message
/// that a stranger labelled.
bool isCodecName(const QByteArray& name);

} // namespace tarvomime
