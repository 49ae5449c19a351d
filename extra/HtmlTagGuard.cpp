// SPDX-License-Identifier: MIT
#include "extra/HtmlTagGuard.h"

#include "types/Ascii.h"

#include <algorithm>
#include <string_view>

namespace tarvomime {

namespace {

constexpr int kMostAttributes = 1000;

bool isLetter(char c)
{
    return asciiLower(c) >= 'a' && asciiLower(c) <= 'z';
}

// Reads the tags of a document as far as it takes to know where one ends.
class TagGuard
{
public:
    explicit TagGuard(std::string_view html) : mHtml(html) { mOut.reserve(int(html.size())); }

    QByteArray run()
    {
        while (mAt < mHtml.size()) {
            const std::size_t tag = std::min(mHtml.find('<', mAt), mHtml.size());
            copy(tag);
            if (mAt + 1 < mHtml.size() && isLetter(mHtml[mAt + 1]))
                copyTag();
            else
                copy(std::min(mAt + 1, mHtml.size()));
        }
        return mOut;
    }

private:
    void copy(std::size_t end)
    {
        mOut.append(mHtml.data() + mAt, int(end - mAt));
        mAt = end;
    }

    void copyTag()
    {
        int attributes = 0;
        std::size_t end = mAt;
        while (end < mHtml.size() && mHtml[end] != '>') {
            // A blank ends a name or a value, and so does the quote that closes a value.
            if (isWhiteSpace(mHtml[end]) || mHtml[end] == '/')
                ++attributes;
            if (mHtml[end] == '=')
                end = endOfValue(end + 1, attributes);
            else
                ++end;
            if (attributes == kMostAttributes)
                copy(std::min(end, mHtml.size()));
        }
        if (attributes >= kMostAttributes)
            mAt = end;
        copy(std::min(end, mHtml.size()));
    }

    // Behind the quoted value that begins at `at`, blanks skipped; `at` where there is none.
    std::size_t endOfValue(std::size_t at, int& attributes) const
    {
        const std::size_t start = mHtml.find_first_not_of(" \t\r\n\f\v", at);
        if (start == mHtml.npos || (mHtml[start] != '"' && mHtml[start] != '\''))
            return at;
        ++attributes;
        return std::min(mHtml.find(mHtml[start], start + 1), mHtml.size() - 1) + 1;
    }

    std::string_view mHtml;
    QByteArray mOut;
    std::size_t mAt = 0;
};

} // namespace

QByteArray guardedHtml(const QByteArray& html)
{
    QByteArray whole = html;
    whole.replace('\0', "\xEF\xBF\xBD");
    return TagGuard({whole.constData(), static_cast<std::size_t>(whole.size())}).run();
}

} // namespace tarvomime
