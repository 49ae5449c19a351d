// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <utility>
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
    /// The lines of one boundary.
    struct Matches
    {
        int first = 0;
        int last = 0;
        bool looked = false;
        /// Where there are many of them: the positions of the LF in front of each line, ascending.
        const std::vector<int>* positions = nullptr;
    };

    /// Over the lines of `text` from the position `start` on.
    DelimiterIndex(std::string_view text, int start) : mText(text), mStart(start) {}

    /// Whether the index can answer for this boundary: one that itself holds the start of a
    /// delimiter line reaches across lines of the index.
    static bool canHold(std::string_view boundary);
    /// Whether there was memory for it so far.
    bool isUsable() const { return mUsable; }
    /// The lines that begin with "--" and `boundary`; not `looked` up when there is no memory.
    Matches lookUp(std::string_view boundary);
    /// The position of the LF in front of the first such line at or behind `from`, or -1.
    int find(const Matches& matches, int from) const;

private:
    // Most comparisons end at the first bytes behind what all lines share, as those of boundaries
    // that one program numbers do: they need no look at the text.
    struct Line
    {
        std::uint64_t key;
        // Where it is among the lines of the text.
        int number;
    };

    void build();
    void measureShared();
    void putInOrder();
    Matches linesOf(std::string_view boundary);
    std::string_view behindDashes(int number) const;
    bool isLess(const Line& a, const Line& b) const;
    const std::vector<int>& positionsOf(const Matches& matches);
    int positionOf(int place) const
    {
        return mStarts[static_cast<std::size_t>(mOrder[static_cast<std::size_t>(place)].number)];
    }

    std::string_view mText;
    int mStart;
    // What all lines begin with, behind "--".
    std::string_view mShared;
    // Ordered by the text behind "--".
    std::vector<Line> mOrder;
    // The position of the LF in front of each line, ascending.
    std::vector<int> mStarts;
    std::map<std::pair<int, int>, std::vector<int>> mPositions;
    bool mBuilt = false;
    bool mUsable = true;
};

} // namespace tarvomime
