// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvomime {

/// The boundaries of the containers that are open at one place of a message, innermost last. A line
/// is compared with all of them in one walk along its bytes, however many there are; a boundary may
/// be as long as the message, and takes little more than its bytes.
class BoundaryTrie
{
public:
    /// Opens a container inside those that are open.
    void push(std::string_view boundary);
    /// Closes containers until `count` are open.
    void closeTo(int count);
    int count() const { return static_cast<int>(mOpen.size()); }
    /// The outermost open container whose boundary `text` begins with, counted from 0, and the
    /// length of that boundary; -1 for none. Outer delimiters end inner bodies, as parsing does it.
    int find(std::string_view text, std::size_t& length) const;

private:
    struct Node
    {
        // The stretch of mBytes that leads here from the node above.
        std::size_t start = 0;
        std::size_t size = 0;
        // Of the open containers that have this boundary; -1 for none.
        int outermost = -1;
    };

    // A node's stretches begin with different bytes.
    static std::uint64_t edge(std::size_t node, char c)
    {
        return node << 8 | static_cast<unsigned char>(c);
    }

    std::string_view stretchTo(std::size_t node) const;
    std::size_t nodeOf(std::string_view boundary);
    std::size_t addLeaf(std::string_view stretch);
    std::size_t splitAbove(std::size_t node, std::size_t size);

    std::string mBytes;
    std::vector<Node> mNodes = {{}};
    std::unordered_map<std::uint64_t, std::size_t> mEdges;
    // The node of each open container.
    std::vector<std::size_t> mOpen;
};

} // namespace tarvomime
