// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

/// An ordered list of pointers that can own its items.
///
/// Today's `QList` holds values, so the owning pointer list of Qt's 2.x generation carries the name
/// it was given later. While auto-deletion is on, the list owns its items: an item that is removed,
/// cleared or still present when the list dies is deleted. While it is off, the list only refers to
/// them. Indices count from 0.
template <class T>
class QPtrList
{
public:
    QPtrList() = default;
    QPtrList(const QPtrList&) = delete;
    QPtrList& operator=(const QPtrList&) = delete;
    ~QPtrList() { clear(); }

    void setAutoDelete(bool on) { mAutoDelete = on; }
    bool autoDelete() const { return mAutoDelete; }

    int count() const { return static_cast<int>(mItems.size()); }
    bool isEmpty() const { return mItems.empty(); }

    /// The item at `index`, or null when there is none.
    T* at(int index) const { return holds(index) ? mItems[position(index)] : nullptr; }
    T* first() const { return at(0); }
    T* last() const { return at(count() - 1); }

    void append(T* item) { mItems.push_back(item); }
    void prepend(T* item) { mItems.insert(mItems.begin(), item); }

    /// Inserts before `index`; `index == count()` appends. False, and nothing done, for a null item
    /// or an index outside 0 to `count()`.
    bool insert(int index, T* item)
    {
        if (item == nullptr || index < 0 || index > count())
            return false;
        mItems.insert(mItems.begin() + index, item);
        return true;
    }

    /// Removes the item at `index` (and deletes it when the list owns); false when there is none.
    bool remove(int index)
    {
        if (!holds(index))
            return false;
        dispose(take(index));
        return true;
    }

    /// Takes the item at `index` out without deleting it; null when there is none.
    T* take(int index)
    {
        if (!holds(index))
            return nullptr;
        T* item = mItems[position(index)];
        mItems.erase(mItems.begin() + index);
        return item;
    }

    void clear()
    {
        // Items may reach back into the list from their destructors: it is empty by then.
        std::vector<T*> items;
        items.swap(mItems);
        for (T* item : items)
            dispose(item);
    }

    auto begin() const { return mItems.begin(); }
    auto end() const { return mItems.end(); }

private:
    static std::size_t position(int index) { return static_cast<std::size_t>(index); }
    bool holds(int index) const { return index >= 0 && index < count(); }
    void dispose(T* item) const
    {
        if (mAutoDelete)
            delete item;
    }

    std::vector<T*> mItems;
    bool mAutoDelete = false;
};
