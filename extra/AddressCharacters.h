// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <algorithm>

namespace tarvomime {

inline bool isControl(QChar c)
{
    return c < QChar(0x20) || (c >= QChar(0x7F) && c < QChar(0xA0));
}

/// What words are made of without quotes: all but blanks, controls and the specials of RFC 5322.
/// Letters of all scripts are among it (RFC 6532).
inline bool isAtomCharacter(QChar c)
{
    return !isControl(c) && !c.isSpace() && !QStringLiteral("()<>[]:;@\\,.\"").contains(c);
}

/// Whether a name can stand in a list as it is: words with single blanks between them.
inline bool isPhraseOfAtoms(const QString& name)
{
    QChar before(' ');
    for (const QChar c : name) {
        if (c == ' ' ? before == ' ' : !isAtomCharacter(c))
            return false;
        before = c;
    }
    return before != ' ';
}

} // namespace tarvomime
