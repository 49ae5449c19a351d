// SPDX-License-Identifier: MIT
#include "tools/tarvomime/NearestName.h"

#include <algorithm>
#include <string_view>

namespace tarvomime::tool {

namespace {

// How many letters are wrong, missing, too many or swapped with their neighbour.
std::size_t distanceOf(std::string_view a, std::string_view b)
{
    // Three rows of the table of distances between all beginnings of the two.
    std::vector<std::size_t> before(b.size() + 1);
    std::vector<std::size_t> above(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        before.swap(above);
        above.swap(row);
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t wrong = above[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({above[j] + 1, row[j - 1] + 1, wrong});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], before[j - 2] + 1);
        }
    }
    return row.back();
}

} // namespace

std::string nearestName(const std::string& typed, const std::vector<std::string>& names)
{
    constexpr std::size_t kLongestName = 40;
    if (typed.empty() || typed.size() > kLongestName)
        return {};
    std::string nearest;
    std::size_t least = typed.size() < 4 ? 2 : 3;
    for (const std::string& name : names) {
        if (name.compare(0, typed.size(), typed) == 0)
            return name;
        const std::size_t distance = distanceOf(typed, name);
        if (distance < least) {
            least = distance;
            nearest = name;
        }
    }
    return nearest;
}

} // namespace tarvomime::tool
