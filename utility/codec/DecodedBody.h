// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Numbers.h"
#include "utility/file/BodyBytes.h"

#include <QString>

class QFile;

/// The content of a stored body: what a viewer shows and what is saved.
namespace tarvomime {

/// Sets `out` to the text that `body` stands for in `charset`, or in `fallback` where that is
/// unknown, up to the first NUL of what is stored; it stays as it was where decoding gives no
/// bytes. Returns 0, or -1 when the body cannot be read or there is no room for its bytes.
int decodeText(const BodyBytes& body, int encoding, int charset, int fallback, QString& out);

/// Writes the decoded bytes of `body`: those of a body in a file all, block by block, and asking
/// `callback`; those of one in memory at once and up to the first NUL of what is stored. Returns 0,
/// -1 when they cannot be read or `file` does not take them, or the answer with which `callback`
/// refused a block.
int writeDecoded(const BodyBytes& body, int encoding, QFile* file,
                 const ProgressCallback& callback);

} // namespace tarvomime
