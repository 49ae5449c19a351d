// SPDX-License-Identifier: MIT
#include "tools/tarvomime/UnifiedDiff.h"

#include "tools/tarvomime/LineDiff.h"

#include <algorithm>

namespace tarvomime::tool {

namespace {

constexpr int kContext = 3;

Lines linesOf(std::string_view text, LineEnds ends)
{
    Lines lines;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        const std::size_t length = std::min(line.size() + 1, text.size());
        if (ends == LineEnds::Compared)
            line = text.substr(0, length);
        else if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        lines.push_back(line);
        text.remove_prefix(length);
    }
    return lines;
}

// Turns the pairs of equal lines into hunks.
class HunkWriter
{
public:
    HunkWriter(const Lines& before, const Lines& after) : mBefore(before), mAfter(after) {}

    std::vector<DiffHunk> run(const std::vector<LinePair>& pairs)
    {
        for (const LinePair& pair : pairs) {
            addChange(pair);
            addEqual(pair);
        }
        addChange({static_cast<int>(mBefore.size()), static_cast<int>(mAfter.size())});
        close();
        return mHunks;
    }

private:
    // The lines up to `next`, which none of the pairs holds.
    void addChange(const LinePair& next)
    {
        if (mNext.before == next.before && mNext.after == next.after)
            return;
        if (!mIsOpen)
            open();
        for (; mNext.before < next.before; ++mNext.before)
            addLine(DiffLine::Kind::Removed, mBefore[static_cast<std::size_t>(mNext.before)]);
        for (; mNext.after < next.after; ++mNext.after)
            addLine(DiffLine::Kind::Added, mAfter[static_cast<std::size_t>(mNext.after)]);
        mEqual = 0;
    }

    void addEqual(const LinePair& pair)
    {
        if (mIsOpen) {
            addLine(DiffLine::Kind::Both, mAfter[static_cast<std::size_t>(pair.after)]);
            // Hunks that would touch are one.
            if (++mEqual > 2 * kContext)
                close();
        }
        mNext = {pair.before + 1, pair.after + 1};
    }

    void open()
    {
        mIsOpen = true;
        const int context = std::min({kContext, mNext.before, mNext.after});
        DiffHunk& hunk = mHunks.emplace_back();
        hunk.before = mNext.before - context;
        hunk.after = mNext.after - context;
        for (int i = context; i > 0; --i)
            addLine(DiffLine::Kind::Both, mAfter[static_cast<std::size_t>(mNext.after - i)]);
    }

    void addLine(DiffLine::Kind kind, std::string_view text)
    {
        DiffHunk& hunk = mHunks.back();
        hunk.lines.push_back({kind, text});
        hunk.beforeCount += kind == DiffLine::Kind::Added ? 0 : 1;
        hunk.afterCount += kind == DiffLine::Kind::Removed ? 0 : 1;
    }

    // Takes the equal lines off again that are no context.
    void close()
    {
        if (!mIsOpen)
            return;
        mIsOpen = false;
        DiffHunk& hunk = mHunks.back();
        const int extra = std::max(0, mEqual - kContext);
        hunk.lines.resize(hunk.lines.size() - static_cast<std::size_t>(extra));
        hunk.beforeCount -= extra;
        hunk.afterCount -= extra;
        hunk.before += hunk.beforeCount > 0 ? 1 : 0;
        hunk.after += hunk.afterCount > 0 ? 1 : 0;
    }

    const Lines& mBefore;
    const Lines& mAfter;
    std::vector<DiffHunk> mHunks;
    LinePair mNext{0, 0};
    bool mIsOpen = false;
    // Equal lines since the last change of the open hunk.
    int mEqual = 0;
};

} // namespace

std::vector<DiffHunk> unifiedDiff(std::string_view before, std::string_view after, LineEnds ends)
{
    const Lines oldLines = linesOf(before, ends);
    const Lines newLines = linesOf(after, ends);
    return HunkWriter(oldLines, newLines).run(commonLines(oldLines, newLines));
}

} // namespace tarvomime::tool
