// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QString>

/// Values that cross between the application and the wire without encoding: one character, one
/// byte.
namespace tarvomime {

/// Up to the first NUL; null when the text is too long.
inline QCString toLatin1(const QString& text)
{
    return text.size() > QCString::longestLength ? QCString() : QCString(text.toLatin1());
}

inline QString fromLatin1(const QCString& text)
{
    return QString::fromLatin1(text.begin(), text.length());
}

/// Null for an empty text.
inline QString fromLatin1OrNull(const QCString& text)
{
    return text.isEmpty() ? QString() : fromLatin1(text);
}

} // namespace tarvomime
