// SPDX-License-Identifier: MIT
#pragma once

#include <new>
#include <utility>
#include <vector>

namespace tarvomime {

/// What a walk over a tree has still to do, the last item first. It grows with the depth of a
/// message in place of the stack, and tells when there is no memory for that.
template <class Item>
class WorkList
{
public:
    bool isEmpty() const { return mItems.empty(); }
    /// The last item, good until the next push; null when nothing is left to do.
    Item* top() { return mItems.empty() ? nullptr : &mItems.back(); }

    /// False, and nothing done, when there is no memory.
    [[nodiscard]] bool push(Item item)
    {
        try {
            mItems.push_back(std::move(item));
        } catch (const std::bad_alloc&) {
            return false;
        }
        return true;
    }

    Item take()
    {
        Item item = std::move(mItems.back());
        mItems.pop_back();
        return item;
    }

private:
    std::vector<Item> mItems;
};

} // namespace tarvomime
