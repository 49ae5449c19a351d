// SPDX-License-Identifier: MIT
#pragma once

#include "utility/tree/TextRange.h"

namespace tarvomime {

/// Where header and body of an entity lie; the body goes on to the end of its text.
struct EntitySplit
{
    TextRange header;
    int bodyStart;
};

/// Splits the entity that lies at `range` of `data` into header and body (RFC 5322, section 2.1).
///
/// Line breaks in front of the header are skipped. A header line holds a ":" or begins with SP or
/// HTAB; the header ends in front of the first line, complete with its LF, that is none, which an
/// empty line is too. One blank separator line, in LF or CR LF form, belongs to neither.
EntitySplit splitEntity(const char* data, TextRange range);

} // namespace tarvomime
