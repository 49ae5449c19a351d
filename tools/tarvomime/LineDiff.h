// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace tarvomime::tool {

using Lines = std::vector<std::string_view>;

/// A line that is in both texts, by its index in each.
struct LinePair
{
    int before;
    int after;
};

/// The lines that two texts have in common, in the order of both: what they begin and end with, the
/// longest row of lines that stand once in each, and what is equal around and between those.
///
/// The shortest of all differences takes the product of both sizes to find; this one takes n log n,
/// whoever wrote the texts, and is what people expect wherever lines were moved, dropped or added.
std::vector<LinePair> commonLines(const Lines& before, const Lines& after);

} // namespace tarvomime::tool
