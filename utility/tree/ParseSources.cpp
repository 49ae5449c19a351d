// SPDX-License-Identifier: MIT
#include "utility/tree/ParseSources.h"

#include "utility/EMAIL_Body.h"

namespace tarvomime {

void MemorySource::place(EMAIL_Body& body, TextRange) const
{
    body.mInMemory = true;
}

void MemorySource::trim(EMAIL_Body& body, TextRange range) const
{
    if (!range.isEmpty())
        body.mString = slice(withoutLineBreaks(data(), range));
}

QCString FileSource::headerText(TextRange range) const
{
    return QCString(mData + range.start, range.length());
}

void FileSource::place(EMAIL_Body& body, TextRange range) const
{
    body.setBodyInfo(mPath, range.start, range.length(), true);
}

void FileSource::trim(EMAIL_Body& body, TextRange range) const
{
    const TextRange kept = withoutLineBreaks(mData, range);
    body.mOffset = kept.start;
    body.mLength = kept.length();
}

} // namespace tarvomime
