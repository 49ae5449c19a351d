// SPDX-License-Identifier: MIT
#include "utility/tree/Delimiter.h"

#include <cstddef>
#include <string>

namespace tarvomime {

namespace {

constexpr auto npos = std::string_view::npos;

bool isClosing(std::string_view text, std::size_t behindBoundary)
{
    return behindBoundary + 1 < text.size() && text.substr(behindBoundary, 2) == "--";
}

int behindLine(std::string_view text, std::size_t position)
{
    const std::size_t lineFeed = text.find('\n', position);
    return static_cast<int>(lineFeed == npos ? text.size() : lineFeed + 1);
}

} // namespace

Delimiter findDelimiter(std::string_view text, int position, std::string_view boundary)
{
    const auto from = static_cast<std::size_t>(position);
    std::string pattern("\n--");
    pattern.append(boundary);
    const std::string_view line = std::string_view(pattern).substr(1);
    if (from + boundary.size() + 1 < text.size() && text.substr(from, line.size()) == line) {
        const std::size_t behind = from + line.size();
        return {position, behindLine(text, behind), isClosing(text, behind), true};
    }
    const std::size_t lineFeed = text.find(pattern, from);
    if (lineFeed == npos)
        return {0, 0, false, false};
    const std::size_t behind = lineFeed + pattern.size();
    const bool afterCr = lineFeed > from && text[lineFeed - 1] == '\r';
    return {static_cast<int>(lineFeed) - (afterCr ? 1 : 0), behindLine(text, behind),
            isClosing(text, behind), true};
}

} // namespace tarvomime
