// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"
#include "types/QCString.h"

#include <QByteArray>
#include <QString>

namespace tarvomime {

/// The text of a header value that may hold encoded words (RFC 2047), for people to read.
///
/// It knows what senders everywhere do, where the library's own decoding keeps to its interface:
///
/// 1. The value is unfolded; white space vanishes between two encoded words only, and stays before
///    and behind plain text.
/// 2. Words of one charset that follow each other are decoded as one, so that a character that was
///    cut in two by a fold is whole again.
/// 3. Charsets are named by any name; a declaration that cannot be true does not hold. Bytes
///    outside words are UTF-8, or else text in `fallbackCharset`, any name that `textFromCharset`
///    takes.
/// 4. Words inside quotes or without white space around them are words too, and blanks inside a
///    word belong to it.
/// 5. A value that was encoded twice, so that the text is nothing but encoded words again, is
///    decoded twice; no more than that.
/// 6. What does not look like a word, and a word without end, stays as it is.
TARVOMIME_EXTRA_EXPORT QString decodedWords(const QCString& value,
                                            const QByteArray& fallbackCharset = "windows-1252");

} // namespace tarvomime
