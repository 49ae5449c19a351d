// SPDX-License-Identifier: MIT
#include "utility/tree/DelimiterIndex.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace tarvomime {

namespace {

constexpr std::string_view lineStart = "\n--";

} // namespace

std::size_t DelimiterIndex::GroupHash::operator()(const Group& group) const
{
    return std::hash<std::size_t>()(group.first * 0x9E3779B97F4A7C15U ^ group.last);
}

bool DelimiterIndex::canHold(std::string_view boundary)
{
    return boundary.find(lineStart) == std::string_view::npos;
}

void DelimiterIndex::build()
{
    if (std::exchange(mBuilt, true))
        return;
    for (std::size_t position = mText.find(lineStart); position != std::string_view::npos;
         position = mText.find(lineStart, position + 1))
        mStarts.push_back(static_cast<int>(position));
    mOrder.resize(mStarts.size());
    std::iota(mOrder.begin(), mOrder.end(), 0);
    std::sort(mOrder.begin(), mOrder.end(),
              [this](int a, int b) { return behindDashes(a) < behindDashes(b); });
}

std::string_view DelimiterIndex::behindDashes(int line) const
{
    const auto index = static_cast<std::size_t>(line);
    const std::size_t start = static_cast<std::size_t>(mStarts[index]) + lineStart.size();
    if (index + 1 == mStarts.size())
        return mText.substr(start);
    // All but the last byte of the next line's start: a boundary that has no such start in it can
    // reach that far.
    const std::size_t end = static_cast<std::size_t>(mStarts[index + 1]) + lineStart.size() - 1;
    return mText.substr(start, end - start);
}

DelimiterIndex::Group DelimiterIndex::groupOf(std::string_view boundary) const
{
    const auto prefixOf = [&](int line) { return behindDashes(line).substr(0, boundary.size()); };
    const auto first = std::partition_point(mOrder.begin(), mOrder.end(),
                                            [&](int line) { return prefixOf(line) < boundary; });
    const auto last = std::partition_point(first, mOrder.end(),
                                           [&](int line) { return prefixOf(line) == boundary; });
    return {static_cast<std::size_t>(first - mOrder.begin()),
            static_cast<std::size_t>(last - mOrder.begin())};
}

const DelimiterIndex::Matches& DelimiterIndex::matches(std::string_view boundary)
{
    build();
    const Group group = groupOf(boundary);
    const auto [entry, isNew] = mGroups.try_emplace(group);
    Matches& matches = entry->second;
    if (isNew) {
        matches.reserve(group.last - group.first);
        for (std::size_t i = group.first; i < group.last; ++i)
            matches.push_back(mStarts[static_cast<std::size_t>(mOrder[i])]);
        std::sort(matches.begin(), matches.end());
    }
    return matches;
}

} // namespace tarvomime
