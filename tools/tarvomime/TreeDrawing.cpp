// SPDX-License-Identifier: MIT
#include "tools/tarvomime/TreeDrawing.h"

#include "extra/MessageContent.h"
#include "tools/tarvomime/PartSummary.h"
#include "tools/tarvomime/Style.h"

#include <algorithm>

namespace tarvomime::tool {

namespace {

constexpr int kDeepestDrawn = 40;

// Draws the lines that lead to the parts of a tree, asked for in reading order.
class Lines
{
public:
    QByteArray leadingTo(int level, bool isLastSibling)
    {
        mIsLast.resize(static_cast<std::size_t>(level));
        mIsLast.push_back(isLastSibling);
        QByteArray drawn;
        for (int above = 0; above < std::min(level, kDeepestDrawn); ++above)
            drawn += mIsLast[static_cast<std::size_t>(above)] ? "   " : "│  ";
        drawn += isLastSibling ? "└─ " : "├─ ";
        if (level > kDeepestDrawn)
            drawn += "(level " + QByteArray::number(level + 1) + ") ";
        return drawn;
    }

private:
    // By level: whether the part there that was drawn last has no sibling below it.
    std::vector<bool> mIsLast;
};

std::vector<bool> lastSiblings(const MessageContent& content)
{
    const int count = static_cast<int>(content.parts.size());
    std::vector<bool> hasLast(static_cast<std::size_t>(count) + 1, false);
    std::vector<bool> isLast(static_cast<std::size_t>(count), false);
    for (int index = count - 1; index >= 0; --index) {
        // The message itself has none: place 0 stands for that.
        const int place = content.parts[index].parent + 1;
        const auto parent = static_cast<std::size_t>(place);
        isLast[static_cast<std::size_t>(index)] = !hasLast[parent];
        hasLast[parent] = true;
    }
    return isLast;
}

} // namespace

std::vector<int> levelsOfParts(const MessageContent& content)
{
    std::vector<int> levels;
    for (const ContentPart& part : content.parts)
        levels.push_back(part.parent < 0 ? 0 : levels[static_cast<std::size_t>(part.parent)] + 1);
    return levels;
}

QByteArray drawnTree(const MessageContent& content, const QByteArray& fallbackCharset,
                     const Style& style)
{
    const std::vector<int> levels = levelsOfParts(content);
    const std::vector<bool> isLast = lastSiblings(content);
    Lines lines;
    QByteArray out;
    for (int index = 0; index < content.parts.size(); ++index) {
        const auto at = static_cast<std::size_t>(index);
        const PartSummary part(content, index, fallbackCharset);
        out += style.faint(lines.leadingTo(levels[at], isLast[at]));
        out += part.number.isEmpty() ? QByteArray() : style.mark(part.number) + "  ";
        out += part.toWords() + '\n';
    }
    return out;
}

} // namespace tarvomime::tool
