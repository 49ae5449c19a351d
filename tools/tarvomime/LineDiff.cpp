// SPDX-License-Identifier: MIT
#include "tools/tarvomime/LineDiff.h"

#include <algorithm>
#include <array>

namespace tarvomime::tool {

namespace {

// Up to so many lines of either text are compared each with each: a line costs no more than that.
constexpr int kSmallGap = 64;

// Lines of one text that stand between two pairs.
struct Gap
{
    int before;
    int beforeEnd;
    int after;
    int afterEnd;

    bool isEmpty() const { return before == beforeEnd || after == afterEnd; }
};

struct NumberedLine
{
    std::string_view text;
    int index;
    bool isAfter;
};

class Comparison
{
public:
    Comparison(const Lines& before, const Lines& after) : mBefore(before), mAfter(after) {}

    std::vector<LinePair> run()
    {
        Gap gap{0, static_cast<int>(mBefore.size()), 0, static_cast<int>(mAfter.size())};
        const std::vector<LinePair> end = takeEnds(gap);
        std::vector<LinePair> anchors = longestRow(linesThatStandOnce(gap));
        anchors.push_back({gap.beforeEnd, gap.afterEnd});
        for (const LinePair& anchor : anchors) {
            fill({gap.before, anchor.before, gap.after, anchor.after});
            if (anchor.before < gap.beforeEnd)
                mPairs.push_back(anchor);
            gap.before = anchor.before + 1;
            gap.after = anchor.after + 1;
        }
        mPairs.insert(mPairs.end(), end.begin(), end.end());
        return mPairs;
    }

private:
    bool isEqual(int before, int after) const
    {
        return mBefore[static_cast<std::size_t>(before)] == mAfter[static_cast<std::size_t>(after)];
    }

    // Takes what is equal at both ends out of the gap; returns what was at its end.
    std::vector<LinePair> takeEnds(Gap& gap)
    {
        for (; !gap.isEmpty() && isEqual(gap.before, gap.after); ++gap.before, ++gap.after)
            mPairs.push_back({gap.before, gap.after});
        std::vector<LinePair> end;
        while (!gap.isEmpty() && isEqual(gap.beforeEnd - 1, gap.afterEnd - 1))
            end.push_back({--gap.beforeEnd, --gap.afterEnd});
        std::reverse(end.begin(), end.end());
        return end;
    }

    // In the order of the text before.
    std::vector<LinePair> linesThatStandOnce(const Gap& gap) const
    {
        std::vector<NumberedLine> lines;
        for (int i = gap.before; i < gap.beforeEnd; ++i)
            lines.push_back({mBefore[static_cast<std::size_t>(i)], i, false});
        for (int i = gap.after; i < gap.afterEnd; ++i)
            lines.push_back({mAfter[static_cast<std::size_t>(i)], i, true});
        std::sort(lines.begin(), lines.end(), [](const NumberedLine& a, const NumberedLine& b) {
            return a.text != b.text ? a.text < b.text : a.isAfter < b.isAfter;
        });
        std::vector<LinePair> pairs;
        for (std::size_t start = 0, end = 0; start < lines.size(); start = end) {
            while (end < lines.size() && lines[end].text == lines[start].text)
                ++end;
            if (end - start == 2 && !lines[start].isAfter && lines[start + 1].isAfter)
                pairs.push_back({lines[start].index, lines[start + 1].index});
        }
        std::sort(pairs.begin(), pairs.end(),
                  [](const LinePair& a, const LinePair& b) { return a.before < b.before; });
        return pairs;
    }

    // The longest row of pairs that stand in the same order in both texts, by patience sorting.
    static std::vector<LinePair> longestRow(const std::vector<LinePair>& pairs)
    {
        std::vector<std::size_t> tops;
        std::vector<std::size_t> previous(pairs.size());
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            const auto pile =
                std::lower_bound(tops.begin(), tops.end(), i, [&](std::size_t a, std::size_t b) {
                    return pairs[a].after < pairs[b].after;
                });
            previous[i] = pile == tops.begin() ? pairs.size() : *std::prev(pile);
            if (pile == tops.end())
                tops.push_back(i);
            else
                *pile = i;
        }
        std::vector<LinePair> row;
        for (std::size_t i = tops.empty() ? pairs.size() : tops.back(); i < pairs.size();
             i = previous[i])
            row.push_back(pairs[i]);
        std::reverse(row.begin(), row.end());
        return row;
    }

    void fill(Gap gap)
    {
        const std::vector<LinePair> end = takeEnds(gap);
        if (!gap.isEmpty() && gap.beforeEnd - gap.before <= kSmallGap &&
            gap.afterEnd - gap.after <= kSmallGap)
            compareEach(gap);
        mPairs.insert(mPairs.end(), end.begin(), end.end());
    }

    // The longest common row of a small gap: the lengths from every pair of lines on, then the way
    // through them.
    void compareEach(const Gap& gap)
    {
        std::array<std::array<int, kSmallGap + 1>, kSmallGap + 1> longest{};
        const int height = gap.beforeEnd - gap.before;
        const int width = gap.afterEnd - gap.after;
        const auto length = [&longest](int i, int j) -> int& {
            return longest[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
        };
        for (int i = height - 1; i >= 0; --i) {
            for (int j = width - 1; j >= 0; --j)
                length(i, j) = isEqual(gap.before + i, gap.after + j)
                                   ? length(i + 1, j + 1) + 1
                                   : std::max(length(i + 1, j), length(i, j + 1));
        }
        for (int i = 0, j = 0; i < height && j < width;) {
            if (isEqual(gap.before + i, gap.after + j))
                mPairs.push_back({gap.before + i++, gap.after + j++});
            else if (length(i + 1, j) >= length(i, j + 1))
                ++i;
            else
                ++j;
        }
    }

    const Lines& mBefore;
    const Lines& mAfter;
    std::vector<LinePair> mPairs;
};

} // namespace

std::vector<LinePair> commonLines(const Lines& before, const Lines& after)
{
    return Comparison(before, after).run();
}

} // namespace tarvomime::tool
