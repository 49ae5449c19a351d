// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <new>
#include <utility>

/// An ordered list of pointers that can own its items.
///
/// Today's `QList` holds values, so the owning pointer list of Qt's 2.x generation carries the name
/// it was given later. While auto-deletion is on, the list owns its items: an item that is removed,
/// cleared or still present when the list dies is deleted. While it is off, the list only refers to
/// them. Indices count from 0.
///
/// A message has several lists for each of its parts, most of them empty or with one item: a list
/// takes 16 bytes and allocates from the second item on. Taking items out never allocates.
template <class T>
class QPtrList
{
public:
    QPtrList() : mCapacity(0), mAutoDelete(0) {}
    QPtrList(const QPtrList&) = delete;
    QPtrList& operator=(const QPtrList&) = delete;
    ~QPtrList()
    {
        clear();
        freeArray();
    }

    void setAutoDelete(bool on) { mAutoDelete = on ? 1 : 0; }
    bool autoDelete() const { return mAutoDelete != 0; }

    int count() const { return mCount; }
    bool isEmpty() const { return mCount == 0; }

    /// The item at `index`, or null when there is none.
    T* at(int index) const { return holds(index) ? begin()[index] : nullptr; }
    T* first() const { return at(0); }
    T* last() const { return at(count() - 1); }

    /// False, and nothing done, when there is no memory: the item stays the caller's.
    bool append(T* item) { return open(mCount, item); }
    bool prepend(T* item) { return open(0, item); }

    /// Inserts before `index`; `index == count()` appends. False, and nothing done, for a null
    /// item, for an index outside 0 to `count()`, and when there is no memory.
    bool insert(int index, T* item)
    {
        return item != nullptr && index >= 0 && index <= count() && open(index, item);
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
        T** position = items() + index;
        T* item = *position;
        std::copy(position + 1, items() + mCount, position);
        --mCount;
        return item;
    }

    void clear()
    {
        if (isEmpty())
            return;
        // Items may reach back into the list from their destructors: it is empty by then.
        QPtrList taken;
        taken.mStore = std::exchange(mStore, Store());
        taken.mCount = std::exchange(mCount, 0);
        taken.mCapacity = mCapacity;
        mCapacity = 0;
        for (T* item : taken)
            dispose(item);
        taken.mCount = 0;
    }

    /// Exchanges the items with those of `other`, and who owns them; nothing is allocated.
    void swap(QPtrList& other) noexcept
    {
        std::swap(mStore, other.mStore);
        std::swap(mCount, other.mCount);
        const unsigned int capacity = mCapacity;
        mCapacity = other.mCapacity;
        other.mCapacity = capacity;
        const bool owned = autoDelete();
        setAutoDelete(other.autoDelete());
        other.setAutoDelete(owned);
    }

    T* const* begin() const { return mCapacity == 0 ? &mStore.one : mStore.many; }
    T* const* end() const { return begin() + mCount; }

private:
    bool holds(int index) const { return index >= 0 && index < count(); }
    void dispose(T* item) const
    {
        if (autoDelete())
            delete item;
    }

    T** items() { return mCapacity == 0 ? &mStore.one : mStore.many; }

    // Makes room at `index` and puts the item there.
    bool open(int index, T* item)
    {
        if (mCount == (mCapacity == 0 ? 1 : static_cast<int>(mCapacity)) && !grow())
            return false;
        T** position = items() + index;
        std::copy_backward(position, items() + mCount, items() + mCount + 1);
        *position = item;
        ++mCount;
        return true;
    }

    bool grow()
    {
        const unsigned int capacity = mCapacity == 0 ? 4U : mCapacity * 2U;
        T** larger = new (std::nothrow) T*[capacity];
        if (larger == nullptr)
            return false;
        std::copy(begin(), end(), larger);
        freeArray();
        mStore.many = larger;
        mCapacity = capacity;
        return true;
    }

    void freeArray()
    {
        if (mCapacity != 0)
            delete[] mStore.many;
    }

    // One item lies in the list itself, as long as there is no array.
    union Store {
        T* one = nullptr;
        T** many;
    };

    Store mStore;
    int mCount = 0;
    unsigned int mCapacity : 31;
    unsigned int mAutoDelete : 1;
};
