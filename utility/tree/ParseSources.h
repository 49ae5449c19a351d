// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "utility/EMAIL_Body.h"
#include "utility/tree/TextRange.h"

#include <QString>

/// Where the walk over a text finds the bytes that it cuts, and how a component keeps them.
namespace tarvomime {

/// The text of a component in memory: what lies below it are slices.
struct MemorySource
{
    static constexpr bool kInMemory = true;

    explicit MemorySource(const QCString& source)
        : text(source), data(text.begin()), whole{0, text.length()}
    {
    }

    QCString slice(TextRange range) const { return text.mid(range.start, range.length()); }
    QCString headerText(TextRange range) const { return slice(range); }
    QCString partText(TextRange range) const { return slice(range); }
    QCString bodyText(TextRange range) const { return slice(range); }
    /// The body, which has its text, lies at `range`.
    void place(EMAIL_Body& body, TextRange) const { body.mInMemory = true; }
    /// Drops the line breaks at both ends of the body, which lies at `range`.
    void trim(EMAIL_Body& body, TextRange range) const
    {
        if (!range.isEmpty())
            body.mString = slice(withoutLineBreaks(data, range));
    }

    QCString text;
    const char* data;
    TextRange whole;
};

/// A range of a file: only header text is copied, up to its first NUL; bodies are ranges too.
struct FileSource
{
    static constexpr bool kInMemory = false;

    QCString headerText(TextRange range) const
    {
        return QCString(data + range.start, range.length());
    }
    QCString partText(TextRange) const { return {}; }
    void place(EMAIL_Body& body, TextRange range) const
    {
        body.setBodyInfo(path, range.start, range.length(), true);
    }
    void trim(EMAIL_Body& body, TextRange range) const
    {
        const TextRange kept = withoutLineBreaks(data, range);
        body.mOffset = kept.start;
        body.mLength = kept.length();
    }

    QString path;
    /// The content of the whole file.
    const char* data;
    TextRange whole;
};

} // namespace tarvomime
