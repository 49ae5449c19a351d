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
    explicit TextBuilder(int length)
        : mText(QCString::fromBytes(bufferOf(length))), mStart(const_cast<char*>(mText.begin()))
    {
        preferHugePages(mStart, static_cast<std::size_t>(length));
    }

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
    // malloc gives free memory back to the system as soon as there is twice as much of it as its
    // largest block had, and a composed message takes just that: its bodies and its text. With a
    // sixteenth more under a long text, which is never touched, the next message finds it all
    // there, and ten attachments of 1 MiB take a fifth of the time.
    static QByteArray bufferOf(int length)
    {
        constexpr int kLong = 1 << 20;
        if (length < kLong)
            return QByteArray(length, Qt::Uninitialized);
        QByteArray buffer;
        buffer.reserve(length + std::min(length / 16, QCString::longestLength - length));
        buffer.resize(length);
        return buffer;
    }

    QCString mText;
    // Into the text's buffer, which nobody else has yet.
    char* mStart;
    int mPosition = 0;
};

} // namespace tarvomime
