// SPDX-License-Identifier: MIT
#include "utility/tree/Delimiter.h"

#include "utility/tree/DelimiterSearch.h"

#include <algorithm>
#include <cstddef>

namespace tarvomime {

namespace {

constexpr auto kNpos = std::string_view::npos;
constexpr std::string_view kDashes = "--";

bool startsWith(std::string_view text, std::size_t position, std::string_view beginning)
{
    return text.substr(position, beginning.size()) == beginning;
}

bool isDelimiterLine(std::string_view text, std::size_t position, std::string_view boundary)
{
    return startsWith(text, position, kDashes) &&
           startsWith(text, position + kDashes.size(), boundary);
}

// The delimiter that starts at `start` and whose dashes are at `line`.
Delimiter delimiterAt(std::string_view text, int start, std::size_t line, std::size_t boundarySize)
{
    const std::size_t behind = line + kDashes.size() + boundarySize;
    const std::size_t lineFeed = text.find('\n', behind);
    const std::size_t next = lineFeed == kNpos ? text.size() : lineFeed + 1;
    return {start, static_cast<int>(next), startsWith(text, behind, kDashes), true};
}

} // namespace

DelimiterFinder::DelimiterFinder(const char* data, TextRange range, int searchesBeforeIndex)
    : mText(viewOf(data, {0, range.end})), mIndex(mText, range.start),
      mSearchBudget(static_cast<long long>(range.length()) * searchesBeforeIndex)
{
}

Delimiter DelimiterFinder::find(TextRange range, std::string_view boundary,
                                DelimiterIndex::Matches& cache)
{
    const std::string_view text = mText.substr(0, static_cast<std::size_t>(range.end));
    const auto from = static_cast<std::size_t>(range.start);
    if (isDelimiterLine(text, from, boundary))
        return delimiterAt(text, range.start, from, boundary.size());
    const int lineFeed = findLine(range, boundary, cache);
    if (lineFeed < 0)
        return {0, 0, false, false};
    const bool afterCr =
        lineFeed > range.start && text[static_cast<std::size_t>(lineFeed) - 1] == '\r';
    return delimiterAt(text, lineFeed - (afterCr ? 1 : 0), static_cast<std::size_t>(lineFeed) + 1,
                       boundary.size());
}

int DelimiterFinder::findLine(TextRange range, std::string_view boundary,
                              DelimiterIndex::Matches& cache)
{
    const bool isIndexed =
        mSearchBudget <= 0 && mIndex.isUsable() && DelimiterIndex::canHold(boundary);
    if (isIndexed && !cache.looked)
        cache = mIndex.lookUp(boundary);
    if (!isIndexed || !cache.looked) {
        const std::string_view text = mText.substr(0, static_cast<std::size_t>(range.end));
        const std::size_t found =
            findDelimiterLine(text, static_cast<std::size_t>(range.start), boundary);
        mSearchBudget -= static_cast<long long>(std::min(found, text.size())) - range.start;
        return found == kNpos ? -1 : static_cast<int>(found);
    }
    const int found = mIndex.find(cache, range.start);
    const auto end = static_cast<long long>(found) + 1 +
                     static_cast<long long>(kDashes.size() + boundary.size());
    return end > range.end ? -1 : found;
}

} // namespace tarvomime
