// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvomime {

/// Where the lines of a text are that begin with "--", ordered so that all lines which begin with
/// the same boundary are found at once. It is filled on first use.
///
/// A line counts here up to the next one that begins with "--", so that a boundary with a fold
/// inside it is found as well. Building costs at most the length of the text times the logarithm of
/// the number of lines, and so does answering for any number of boundaries.
class DelimiterIndex
{
public:
    /// Positions of the LF in front of each line, ascending.
    using Matches = std::vector<int>;

    explicit DelimiterIndex(std::string_view text) : mText(text) {}

    /// Whether `matches` can answer for this boundary: one that itself holds the start of a
    /// delimiter line reaches across lines of the index.
    static bool canHold(std::string_view boundary);
    /// The lines that begin with "--" and `boundary`; valid as long as the index is.
    const Matches& matches(std::string_view boundary);

private:
    struct Group
    {
        std::size_t first;
        std::size_t last;
        bool operator==(const Group&) const = default;
    };
    struct GroupHash
    {
        std::size_t operator()(const Group& group) const;
    };

    void build();
    std::string_view behindDashes(int line) const;
    Group groupOf(std::string_view boundary) const;

    std::string_view mText;
    // The position in mStarts of each line, in the order of the texts behind "--".
    std::vector<int> mOrder;
    // The position of the LF in front of each line, ascending.
    std::vector<int> mStarts;
    std::unordered_map<Group, Matches, GroupHash> mGroups;
    bool mBuilt = false;
};

} // namespace tarvomime
