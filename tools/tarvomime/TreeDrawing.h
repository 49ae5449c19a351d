// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <vector>

namespace tarvomime::tool {

class PartTree;

/// Draws the lines that lead to the parts of a tree, asked for in reading order.
///
/// Lines are bounded: parts below the 40th level all stand at its depth, with their level said.
class TreeDrawing
{
public:
    /// The box-drawing characters in front of `part`'s line.
    QByteArray prefix(int depth, bool isLastSibling);

private:
    /// For each open level, whether its part was the last of its siblings.
    std::vector<bool> mIsLast;
};

/// The whole tree, a line a part; `charset` is for undeclared 8-bit text in names.
QByteArray drawnTree(const PartTree& tree, int charset);

} // namespace tarvomime::tool
