// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace tarvomime::tool {

enum class LineEnds {
    /// Lines that differ in their ends only are equal.
    Ignored,
    Compared
};

/// One line of a difference.
struct DiffLine
{
    enum class Kind { Both, Removed, Added };
    Kind kind;
    /// With its end where ends are compared, else without.
    std::string_view text;
};

/// Lines that changed, and those around them. Line numbers count from 1; for no lines at all, from
/// the line before.
struct DiffHunk
{
    int before = 0;
    int beforeCount = 0;
    int after = 0;
    int afterCount = 0;
    std::vector<DiffLine> lines;
};

/// The difference of two texts, which must outlive it, with up to three equal lines around each
/// change; empty where they are equal.
std::vector<DiffHunk> unifiedDiff(std::string_view before, std::string_view after, LineEnds ends);

} // namespace tarvomime::tool
