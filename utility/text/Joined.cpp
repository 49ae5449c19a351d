// SPDX-License-Identifier: MIT
#include "utility/text/Joined.h"

#include <algorithm>

namespace tarvomime {

namespace {

// An array of its own: equal literals may lie in one place. Its first byte ends the text that shows
// none of it, so that the text is never copied to be terminated.
constexpr char kRefusal[2] = {'\0', '\0'};

} // namespace

QCString refusedText()
{
    return QCString::fromLiteral(kRefusal).left(0);
}

bool isRefused(const QCString& text)
{
    return text.isEmpty() && text.begin() == kRefusal;
}

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
