// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "utility/tree/TextRange.h"

#include <QString>

class EMAIL_Body;

/// Where the walk over a text finds the bytes that it cuts, and how a component keeps them.
namespace tarvomime {

/// The text of a component in memory: what lies below it are slices.
class MemorySource
{
public:
    static constexpr bool kInMemory = true;

    explicit MemorySource(const QCString& text) : mText(text) {}

    const char* data() const { return mText.begin(); }
    TextRange range() const { return {0, mText.length()}; }
    QCString headerText(TextRange range) const { return slice(range); }
    QCString partText(TextRange range) const { return slice(range); }
    QCString bodyText(TextRange range) const { return slice(range); }
    /// The body, which has its text, lies at `range`.
    void place(EMAIL_Body& body, TextRange range) const;
    /// Drops the line breaks at both ends of the body, which lies at `range`.
    void trim(EMAIL_Body& body, TextRange range) const;

private:
    QCString slice(TextRange range) const { return mText.mid(range.start, range.length()); }

    QCString mText;
};

/// A range of a file: only header text is copied, up to its first NUL; bodies are ranges too.
class FileSource
{
public:
    static constexpr bool kInMemory = false;

    /// `data` is the content of the whole file.
    FileSource(const QString& path, const char* data, TextRange range)
        : mPath(path), mData(data), mRange(range)
    {
    }

    const char* data() const { return mData; }
    TextRange range() const { return mRange; }
    QCString headerText(TextRange range) const;
    QCString partText(TextRange) const { return {}; }
    void place(EMAIL_Body& body, TextRange range) const;
    void trim(EMAIL_Body& body, TextRange range) const;

private:
    QString mPath;
    const char* mData;
    TextRange mRange;
};

} // namespace tarvomime
