// SPDX-License-Identifier: MIT
#pragma once

#include "utility/file/BodyBytes.h"

#include <QString>

/// The content of a stored body as a viewer shows it.
namespace tarvomime {

/// Sets `out` to the text that `body` stands for in `charset`, or in `fallback` where that is
/// unknown, up to the first NUL of what is stored; it stays as it was where decoding gives no
/// bytes. Returns 0, or -1 when the body cannot be read or there is no room for its bytes.
int decodeText(const BodyBytes& body, int encoding, int charset, int fallback, QString& out);

} // namespace tarvomime
