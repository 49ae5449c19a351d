// SPDX-License-Identifier: MIT
#include "utility/tree/EntitySplit.h"

#include "types/Ascii.h"

#include <cstddef>

namespace tarvomime {

namespace {

constexpr auto kNpos = std::string_view::npos;

std::size_t skipLineBreaks(std::string_view text)
{
    std::size_t position = 0;
    while (position < text.size() && isLineBreak(text[position]))
        ++position;
    return position;
}

bool isHeaderLine(std::string_view line)
{
    return (!line.empty() && isBlank(line.front())) || line.find(':') != kNpos;
}

// An unterminated last line stays in the header whatever it holds: only a line end lets a line be
// judged.
std::size_t findHeaderEnd(std::string_view text, std::size_t start)
{
    std::size_t lineStart = start;
    for (;;) {
        const std::size_t lineFeed = text.find('\n', lineStart);
        if (lineFeed == kNpos)
            return text.size();
        if (!isHeaderLine(text.substr(lineStart, lineFeed - lineStart)))
            return lineStart;
        lineStart = lineFeed + 1;
    }
}

// The two steps may both apply: LF CR LF is one separator.
std::size_t skipSeparator(std::string_view text, std::size_t position)
{
    if (text.substr(position, 1) == "\n")
        position += 1;
    if (text.substr(position, 2) == "\r\n")
        position += 2;
    return position;
}

} // namespace

EntitySplit splitEntity(const char* data, TextRange range)
{
    const std::string_view text = viewOf(data, range);
    const std::size_t headerStart = skipLineBreaks(text);
    const std::size_t headerEnd = findHeaderEnd(text, headerStart);
    const std::size_t bodyStart = skipSeparator(text, headerEnd);
    return {
        {range.start + static_cast<int>(headerStart), range.start + static_cast<int>(headerEnd)},
        range.start + static_cast<int>(bodyStart)};
}

} // namespace tarvomime
