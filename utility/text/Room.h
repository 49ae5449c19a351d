// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QByteArray>
#include <new>
#include <optional>
#include <string_view>

namespace tarvomime {

/// Does `work`; false when there was no memory for it, however far it came.
template <class Work>
bool hasMemoryFor(Work work)
{
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

/// An array of bytes or of characters, to be filled with a text of `size` of them and `spare` more;
/// nothing when there is no memory for it or no text may be that long.
template <class Array>
std::optional<Array> roomFor(quint64 size, int spare = 0)
{
    if (size > quint64{QCString::longestLength})
        return std::nullopt;
    std::optional<Array> room;
    hasMemoryFor([&] { room = Array(static_cast<int>(size) + spare, Qt::Uninitialized); });
    return room;
}

/// The bytes in an array of their own; an empty one when there is no room for them.
inline QByteArray copyOf(std::string_view bytes)
{
    QByteArray copy;
    if (bytes.size() <= std::size_t{QCString::longestLength})
        hasMemoryFor([&] { copy = QByteArray(bytes.data(), static_cast<int>(bytes.size())); });
    return copy;
}

} // namespace tarvomime
