// SPDX-License-Identifier: MIT
#include "tools/tarvomime/TreeDrawing.h"

#include "tools/tarvomime/PartFacts.h"
#include "tools/tarvomime/PartTree.h"
#include "tools/tarvomime/Printable.h"

#include <algorithm>

namespace tarvomime::tool {

namespace {

constexpr int kDeepestDrawn = 40;

} // namespace

QByteArray TreeDrawing::prefix(int depth, bool isLastSibling)
{
    mIsLast.resize(static_cast<std::size_t>(depth));
    mIsLast.push_back(isLastSibling);
    QByteArray drawn;
    for (int level = 0; level < std::min(depth, kDeepestDrawn); ++level)
        drawn += mIsLast[static_cast<std::size_t>(level)] ? "   " : "│  ";
    drawn += isLastSibling ? "└─ " : "├─ ";
    if (depth > kDeepestDrawn)
        drawn += "(level " + QByteArray::number(depth + 1) + ") ";
    return drawn;
}

QByteArray drawnTree(const PartTree& tree, int charset)
{
    QByteArray out;
    TreeDrawing drawing;
    int index = 0;
    for (const Part& part : tree.parts()) {
        const QByteArray number = tree.numberOf(index++);
        const PartFacts facts(*part.entity, charset);
        out += drawing.prefix(part.depth, part.isLastSibling);
        out += number.isEmpty() ? QByteArray() : number + "  ";
        out += printableLine(facts.toWords().join(", ")) + '\n';
    }
    return out;
}

} // namespace tarvomime::tool
