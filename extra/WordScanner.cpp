// SPDX-License-Identifier: MIT
#include "extra/WordScanner.h"

#include <algorithm>
#include <cstddef>

namespace tarvomime {

namespace {

// Charset names are RFC 2047 tokens, in practice of these characters.
bool isCharsetCharacter(char c)
{
    const char lower = static_cast<char>(c | 0x20);
    return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') ||
           std::string_view("-_.:+()*'").find(c) != std::string_view::npos;
}

// The position of the "?=" that ends a payload. A word that begins before it shows that this one
// was cut off; looking no farther keeps a million cut words linear.
std::size_t payloadEnd(std::string_view text, std::size_t start)
{
    std::size_t mark = text.find('?', start);
    while (mark != std::string_view::npos) {
        if (mark + 1 < text.size() && text[mark + 1] == '=')
            return mark;
        if (mark > start && text[mark - 1] == '=')
            return std::string_view::npos;
        mark = text.find('?', mark + 1);
    }
    return std::string_view::npos;
}

} // namespace

std::optional<EncodedWord> WordScanner::wordAt(std::string_view text)
{
    if (text.substr(0, 2) != "=?")
        return std::nullopt;
    std::size_t charsetEnd = 2;
    while (charsetEnd < text.size() && isCharsetCharacter(text[charsetEnd]))
        ++charsetEnd;
    const std::string_view form = text.substr(charsetEnd, 3);
    if (charsetEnd == 2 || form.size() < 3 || form[0] != '?' || form[2] != '?')
        return std::nullopt;
    const char letter = static_cast<char>(form[1] | 0x20);
    const std::size_t start = charsetEnd + 3;
    const std::size_t end = payloadEnd(text, start);
    if ((letter != 'b' && letter != 'q') || end == std::string_view::npos)
        return std::nullopt;
    // RFC 2231 lets a language follow the charset.
    const std::string_view label = text.substr(2, charsetEnd - 2);
    return EncodedWord{label.substr(0, label.find('*')), letter == 'b',
                       text.substr(start, end - start), text.substr(0, end + 2)};
}

std::string_view WordScanner::takePlain()
{
    const std::string_view all = mRest;
    while (!mRest.empty()) {
        mRest.remove_prefix(std::min(mRest.find("=?"), mRest.size()));
        if (const auto word = wordAt(mRest)) {
            mNext = *word;
            return all.substr(0, all.size() - mRest.size());
        }
        mRest.remove_prefix(std::min<std::size_t>(2, mRest.size()));
    }
    return all;
}

EncodedWord WordScanner::takeWord()
{
    mRest.remove_prefix(mNext.text.size());
    return mNext;
}

} // namespace tarvomime
