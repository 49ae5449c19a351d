// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tarvomime {

/// A boundary delimiter line of a multipart body (RFC 2046, section 5.1.1), in bytes of the text.
struct Delimiter
{
    /// Where it starts: at the CR or LF in front of its line.
    int start;
    /// Behind the LF that ends its line, or the end of the text.
    int next;
    /// Whether it is the closing delimiter.
    bool closing;
    bool found;
};

/// Finds the next delimiter of `boundary` in `text` from `position` on.
///
/// 1. The boundary matches as a prefix: what follows it on the line is skipped, and a longer
///    boundary that begins with this one matches too. Mail agents pad delimiter lines freely.
Delimiter findDelimiter(std::string_view text, int position, std::string_view boundary);

} // namespace tarvomime
