// SPDX-License-Identifier: MIT
#pragma once

#include "utility/tree/DelimiterIndex.h"
#include "utility/tree/TextRange.h"

#include <string_view>

namespace tarvomime {

/// A boundary delimiter line of a multipart body (RFC 2046, section 5.1.1), in bytes of the text.
struct Delimiter
{
    /// Where it starts: at the CR or LF in front of its line.
    int start;
    /// Behind the LF that ends its line, or the end of the range.
    int next;
    /// Whether it is the closing delimiter.
    bool closing;
    bool found;
};

/// Finds delimiters in the bodies of one message, however these nest.
///
/// Each body is searched byte by byte until the bodies together have cost as much as two walks
/// over the whole text. Only a message that nests deeper than real mail does gets there; from then
/// on bodies look into an index of all delimiter lines, and the cost stays linear in the text.
///
/// 1. The boundary matches as a prefix: what follows it on the line is skipped, and a longer
///    boundary that begins with this one matches too. Mail agents pad delimiter lines freely.
/// 2. The last byte of the boundary may be the last byte of the range: a delimiter line needs no
///    line break of its own.
class DelimiterFinder
{
public:
    /// For bodies within `range` of `data`, which must outlive the finder.
    DelimiterFinder(const char* data, TextRange range, int searchesBeforeIndex = 2);

    /// The next delimiter of `boundary` in `range` of the data, at or behind its start. `cache` is
    /// one for each body, empty at first.
    Delimiter find(TextRange range, std::string_view boundary, DelimiterIndex::Matches& cache);

private:
    int findLine(TextRange range, std::string_view boundary, DelimiterIndex::Matches& cache);

    std::string_view mText;
    DelimiterIndex mIndex;
    long long mSearchBudget;
};

} // namespace tarvomime
