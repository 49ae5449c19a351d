// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

class EMAIL_Header;

namespace tarvomime {

/// Assembles the fields of a header and its text from them; every field's line is a slice of it.
///
/// The four fields that a reader looks for first lead, Date before Subject; all others keep their
/// order. False, and the header's text as it was, when a field refuses to be written or the text
/// would be longer than `limit` bytes: nothing is built before all is measured.
bool assembleHeader(EMAIL_Header& header, int limit = QCString::longestLength);

/// Makes the text of the header, and the lines of its fields that are slices of it, slices of
/// `text`, which holds the same bytes from its position `start` on.
void moveHeader(EMAIL_Header& header, const QCString& text, int start);

} // namespace tarvomime
