// SPDX-License-Identifier: MIT
#include "utility/text/Joined.h"

#include "utility/text/RefusedText.h"

#include <algorithm>

namespace tarvomime {

QCString joined(std::initializer_list<std::string_view> pieces)
{
    quint64 size = 0;
    for (const std::string_view piece : pieces)
        size += piece.size();
    if (size > quint64{QCString::longestLength})
        return refusedText();
    QByteArray text(static_cast<int>(size), Qt::Uninitialized);
    char* end = text.data();
    for (const std::string_view piece : pieces)
        end = std::copy(piece.begin(), piece.end(), end);
    return QCString::fromBytes(text);
}

} // namespace tarvomime
