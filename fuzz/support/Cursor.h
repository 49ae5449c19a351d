// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QByteArray>
#include <QString>
#include <cstdint>

namespace tarvomime::fuzz {

/// Takes numbers and texts from the front of an input. What is not there reads as 0 or empty.
class Cursor
{
public:
    Cursor(const uint8_t* bytes, size_t size)
        : mRest(reinterpret_cast<const char*>(bytes), static_cast<int>(size))
    {
    }

    bool isAtEnd() const { return mNext >= mRest.size(); }

    int takeByte() { return isAtEnd() ? 0 : static_cast<uint8_t>(mRest.at(mNext++)); }

    /// A small number on both sides of 0.
    int takeNumber() { return takeByte() % 32 - 2; }

    /// The bytes up to a U+001F, which is taken too.
    QByteArray takeBytes()
    {
        const auto end = mRest.indexOf('\x1f', mNext);
        const QByteArray bytes = mRest.mid(mNext, end < 0 ? -1 : end - mNext);
        mNext += bytes.size() + 1;
        return bytes;
    }

    QCString takeText() { return QCString(takeBytes()); }
    QString takeString() { return QString::fromUtf8(takeBytes()); }

private:
    QByteArray mRest;
    decltype(mRest.size()) mNext = 0;
};

} // namespace tarvomime::fuzz
