// SPDX-License-Identifier: MIT
#pragma once

#include "utility/tree/TextRange.h"

#include <string_view>

namespace tarvomime {

/// Where header and body lie in the text of an entity, in bytes from its start. The header runs
/// from `headerStart` up to `headerEnd`, the body from `bodyStart` to the end.
struct EntitySplit
{
    int headerStart;
    int headerEnd;
    int bodyStart;

    /// The header of an entity that lies at `range`.
    TextRange headerIn(TextRange range) const
    {
        return {range.start + headerStart, range.start + headerEnd};
    }
};

/// Splits the text of an entity into header and body (RFC 5322, section 2.1).
///
/// Line breaks in front of the header are skipped. A header line holds a ":" or begins with SP or
/// HTAB; the header ends in front of the first line, complete with its LF, that is none, which an
/// empty line is too. One blank separator line, in LF or CR LF form, belongs to neither.
EntitySplit splitEntity(std::string_view text);

} // namespace tarvomime
