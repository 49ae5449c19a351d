// SPDX-License-Identifier: MIT
#include "extra/BoundaryTrie.h"

#include <algorithm>

namespace tarvomime {

namespace {

std::size_t commonLength(std::string_view a, std::string_view b)
{
    const std::size_t shorter = std::min(a.size(), b.size());
    return static_cast<std::size_t>(
        std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(shorter), b.begin())
            .first -
        a.begin());
}

} // namespace

std::string_view BoundaryTrie::stretchTo(std::size_t node) const
{
    return std::string_view(mBytes).substr(mNodes[node].start, mNodes[node].size);
}

std::size_t BoundaryTrie::addLeaf(std::string_view stretch)
{
    mNodes.push_back({mBytes.size(), stretch.size(), -1});
    mBytes.append(stretch);
    return mNodes.size() - 1;
}

// A new node behind the first `size` bytes of the stretch that leads to `node`.
std::size_t BoundaryTrie::splitAbove(std::size_t node, std::size_t size)
{
    const std::size_t upper = mNodes.size();
    mNodes.push_back({mNodes[node].start, size, -1});
    mNodes[node].start += size;
    mNodes[node].size -= size;
    mEdges.emplace(edge(upper, stretchTo(node).front()), node);
    return upper;
}

std::size_t BoundaryTrie::nodeOf(std::string_view boundary)
{
    std::size_t node = 0;
    while (!boundary.empty()) {
        const auto [place, isNew] = mEdges.try_emplace(edge(node, boundary.front()), 0);
        // It stays where it is when others come in.
        std::size_t& next = place->second;
        if (isNew)
            return next = addLeaf(boundary);
        const std::size_t common = commonLength(stretchTo(next), boundary);
        if (common < mNodes[next].size)
            next = splitAbove(next, common);
        node = next;
        boundary.remove_prefix(common);
    }
    return node;
}

void BoundaryTrie::push(std::string_view boundary)
{
    const std::size_t node = nodeOf(boundary);
    if (mNodes[node].outermost < 0)
        mNodes[node].outermost = count();
    mOpen.push_back(node);
}

void BoundaryTrie::closeTo(int count)
{
    while (this->count() > count) {
        int& outermost = mNodes[mOpen.back()].outermost;
        mOpen.pop_back();
        if (outermost == this->count())
            outermost = -1;
    }
}

int BoundaryTrie::find(std::string_view text, std::size_t& length) const
{
    int found = -1;
    std::size_t node = 0;
    for (std::size_t at = 0;; at += mNodes[node].size) {
        const int here = mNodes[node].outermost;
        if (here >= 0 && (found < 0 || here < found)) {
            found = here;
            length = at;
        }
        if (at == text.size())
            return found;
        const auto next = mEdges.find(edge(node, text[at]));
        if (next == mEdges.end())
            return found;
        node = next->second;
        if (text.substr(at, mNodes[node].size) != stretchTo(node))
            return found;
    }
}

} // namespace tarvomime
