// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QByteArray>
#include <QString>
#include <ostream>

// GoogleTest finds these by their arguments' types: a failing row then shows its text, with control
// and 8-bit bytes escaped.
inline void printEscaped(const QByteArray& bytes, std::ostream* out)
{
    *out << '"';
    for (const char c : bytes) {
        if (c >= ' ' && c <= '~' && c != '\\' && c != '"')
            *out << c;
        else
            *out << "\\x" << QByteArray(1, c).toHex().constData();
    }
    *out << '"';
}

inline void PrintTo(const QCString& text, std::ostream* out)
{
    if (text.isNull())
        *out << "(null)";
    else
        printEscaped(text, out);
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out)
{
    printEscaped(bytes, out);
}

inline void PrintTo(const QString& text, std::ostream* out)
{
    printEscaped(text.toUtf8(), out);
}
