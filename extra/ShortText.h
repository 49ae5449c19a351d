// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace tarvomime {

/// No honest value names more charsets; a flood of labels must not become a flood of look-ups.
constexpr int kMostLabels = 32;

/// Reads names and other texts that are too short to guess their charset from their letters: as
/// declared where that can be true, else as UTF-8 where the bytes are that, else in a fallback.
class ShortTextReader
{
public:
    explicit ShortTextReader(const QByteArray& fallbackCharset) : mFallback(fallbackCharset) {}

    QString read(const QByteArray& bytes) const;
    /// `label` is the declared charset's name in lower case; empty where none is declared.
    QString read(const QByteArray& bytes, const QByteArray& label);

private:
    bool isReadable(const QByteArray& label);

    QByteArray mFallback;
    // What is known of the labels seen: asking for a codec costs more than decoding a word.
    QHash<QByteArray, bool> mReadable;
};

} // namespace tarvomime
