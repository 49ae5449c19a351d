// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarvomime {

/// Where the tags and comments of HTML end, by the rules of the HTML standard. What never ends,
/// ends with the document.

struct HtmlAttribute
{
    std::string_view name;
    /// As it is written, without its quotes; empty without a value.
    std::string_view value;
    bool hasValue;
};

/// Reads one tag, attribute by attribute.
class HtmlTag
{
public:
    /// `at` is where the name of the tag begins.
    HtmlTag(std::string_view html, std::size_t at);

    std::string_view name() const { return mName; }
    /// The next attribute; nothing at the end of the tag.
    std::optional<HtmlAttribute> takeAttribute();

    /// Of a tag whose attributes were all taken: whether it ends by "/>", and what lies behind it.
    bool isSelfClosed() const { return mIsSelfClosed; }
    std::size_t end() const { return mAt; }

private:
    bool isAtEnd() const { return mAt == mHtml.size() || mHtml[mAt] == '>'; }
    std::string_view takeName();
    std::string_view takeValue();
    std::string_view takeQuoted();
    void skipBlanks();

    std::string_view mHtml;
    std::size_t mAt;
    std::string_view mName;
    bool mIsSelfClosed = false;
};

/// Behind the comment, declaration or instruction at `at`, which begins with "<!", "<?" or "</".
std::size_t endOfUnseen(std::string_view html, std::size_t at);

/// The end tag of the element `name` at or behind `at`, inside which nothing else is markup.
std::size_t endOfRawText(std::string_view html, std::size_t at, std::string_view name);

} // namespace tarvomime
