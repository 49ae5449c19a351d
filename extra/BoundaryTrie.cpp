// SPDX-License-Identifier: MIT
#include "extra/BoundaryTrie.h"

namespace tarvomime {

void BoundaryTrie::push(std::string_view boundary)
{
    std::size_t node = 0;
    for (const char c : boundary) {
        const auto [place, isNew] = mEdges.try_emplace(edge(node, c), mNodes.size());
        if (isNew)
            mNodes.push_back({mNodes[node].depth + 1, {}});
        node = place->second;
    }
    mNodes[node].containers.push_back(count());
    mOpen.push_back(node);
}

void BoundaryTrie::closeTo(int count)
{
    while (this->count() > count) {
        mNodes[mOpen.back()].containers.pop_back();
        mOpen.pop_back();
    }
}

int BoundaryTrie::find(std::string_view text, std::size_t& length) const
{
    int found = -1;
    std::size_t node = 0;
    for (std::size_t at = 0;; ++at) {
        const Node& here = mNodes[node];
        if (!here.containers.empty() && (found < 0 || here.containers.front() < found)) {
            found = here.containers.front();
            length = here.depth;
        }
        if (at == text.size())
            return found;
        const auto next = mEdges.find(edge(node, text[at]));
        if (next == mEdges.end())
            return found;
        node = next->second;
    }
}

} // namespace tarvomime
