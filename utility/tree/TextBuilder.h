// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "utility/text/HugePages.h"

#include <QByteArray>
#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tarvomime {

/// A text whose length is known before it is written: each byte is written once, in its place, and
/// what has been written can be handed out at once.
class TextBuilder
{
public:
    explicit TextBuilder(int length) : TextBuilder(QByteArray(length, Qt::Uninitialized)) {}

    /// False, and nothing written, where there is no room: the text would be longer than was said.
    bool write(std::string_view piece)
    {
        if (static_cast<qint64>(piece.size()) > mText.length() - mPosition)
            return false;
        std::copy(piece.begin(), piece.end(), mStart + mPosition);
        mPosition += static_cast<int>(piece.size());
        return true;
    }

    int position() const { return mPosition; }
    /// What was written from `start` on, as a slice of the text.
    QCString writtenFrom(int start) const { return mText.mid(start, mPosition - start); }

private:
    // Written through a pointer: the text already shares the buffer. Taken by value, so that the
    // pointer is into a buffer that nobody else has.
    // cppcheck-suppress passedByValue
    explicit TextBuilder(QByteArray buffer)
        : mStart(buffer.isEmpty() ? nullptr : buffer.data()), mText(QCString::fromBytes(buffer))
    {
        preferHugePages(mStart, static_cast<std::size_t>(buffer.size()));
    }

    char* mStart;
    QCString mText;
    int mPosition = 0;
};

} // namespace tarvomime
