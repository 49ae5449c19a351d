// SPDX-License-Identifier: MIT
#include "utility/text/Joined.h"

#include <algorithm>

namespace tarvomime {

QByteArray joined(std::initializer_list<std::string_view> pieces)
{
    std::size_t size = 0;
    for (const std::string_view piece : pieces)
        size += piece.size();
    QByteArray text(static_cast<int>(size), Qt::Uninitialized);
    char* end = text.data();
    for (const std::string_view piece : pieces)
        end = std::copy(piece.begin(), piece.end(), end);
    return text;
}

} // namespace tarvomime
