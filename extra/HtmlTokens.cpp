// SPDX-License-Identifier: MIT
#include "extra/HtmlTokens.h"

#include "types/Ascii.h"

#include <algorithm>

namespace tarvomime {

namespace {

bool isHtmlBlank(char c)
{
    return isWhiteSpace(c) && c != '\v';
}

bool endsName(char c)
{
    return isHtmlBlank(c) || c == '/' || c == '>';
}

bool startsAt(std::string_view html, std::size_t at, std::string_view wanted)
{
    return html.compare(at, wanted.size(), wanted) == 0;
}

// Behind the first '>' at or behind `at`.
std::size_t behindGreater(std::string_view html, std::size_t at)
{
    return std::min(html.find('>', at), html.size() - 1) + 1;
}

// `at` is behind "<!--".
std::size_t endOfComment(std::string_view html, std::size_t at)
{
    if (startsAt(html, at, ">") || startsAt(html, at, "->"))
        return behindGreater(html, at);
    while ((at = html.find("--", at)) != html.npos) {
        if (startsAt(html, at, "-->") || startsAt(html, at, "--!>"))
            return behindGreater(html, at);
        ++at;
    }
    return html.size();
}

} // namespace

HtmlTag::HtmlTag(std::string_view html, std::size_t at) : mHtml(html), mAt(at)
{
    while (mAt < mHtml.size() && !endsName(mHtml[mAt]))
        ++mAt;
    mName = mHtml.substr(at, mAt - at);
}

std::optional<HtmlAttribute> HtmlTag::takeAttribute()
{
    for (mIsSelfClosed = false; !isAtEnd() && endsName(mHtml[mAt]); ++mAt)
        mIsSelfClosed = mHtml[mAt] == '/';
    if (isAtEnd()) {
        mAt = std::min(mAt + 1, mHtml.size());
        return std::nullopt;
    }
    HtmlAttribute attribute{takeName(), {}, false};
    skipBlanks();
    attribute.hasValue = startsAt(mHtml, mAt, "=");
    if (attribute.hasValue)
        attribute.value = takeValue();
    return attribute;
}

std::string_view HtmlTag::takeName()
{
    const std::size_t start = mAt;
    // A '=' that nothing stands in front of is part of a name.
    ++mAt;
    while (mAt < mHtml.size() && !endsName(mHtml[mAt]) && mHtml[mAt] != '=')
        ++mAt;
    return mHtml.substr(start, mAt - start);
}

std::string_view HtmlTag::takeValue()
{
    ++mAt;
    skipBlanks();
    if (startsAt(mHtml, mAt, "\"") || startsAt(mHtml, mAt, "'"))
        return takeQuoted();
    const std::size_t start = mAt;
    while (!isAtEnd() && !isHtmlBlank(mHtml[mAt]))
        ++mAt;
    return mHtml.substr(start, mAt - start);
}

std::string_view HtmlTag::takeQuoted()
{
    const std::size_t start = mAt + 1;
    const std::size_t end = std::min(mHtml.find(mHtml[mAt], start), mHtml.size());
    mAt = std::min(end + 1, mHtml.size());
    return mHtml.substr(start, end - start);
}

void HtmlTag::skipBlanks()
{
    while (mAt < mHtml.size() && isHtmlBlank(mHtml[mAt]))
        ++mAt;
}

std::size_t endOfUnseen(std::string_view html, std::size_t at)
{
    return startsAt(html, at, "<!--") ? endOfComment(html, at + 4) : behindGreater(html, at);
}

std::size_t endOfRawText(std::string_view html, std::size_t at, std::string_view name)
{
    while ((at = html.find("</", at)) != html.npos) {
        const std::size_t end = at + 2 + name.size();
        if (end < html.size() && endsName(html[end]) &&
            equalIgnoringCase(html.substr(at + 2, name.size()), name))
            return at;
        at += 2;
    }
    return html.size();
}

} // namespace tarvomime
