// SPDX-License-Identifier: MIT
#include "extra/AddressScanner.h"

#include "extra/WordScanner.h"

#include <algorithm>

namespace tarvomime {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kSpecials = "<>@,:;";

// Without escapes and line ends: of a fold only its blank stays.
QByteArray unescaped(std::string_view text)
{
    QByteArray out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size())
            ++i;
        if (text[i] != '\r' && text[i] != '\n')
            out += text[i];
    }
    return out;
}

QByteArray toByteArray(std::string_view text)
{
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

} // namespace

bool AddressScanner::skipBlanks()
{
    const std::size_t count = std::min(mRest.find_first_not_of(kBlanks), mRest.size());
    mRest.remove_prefix(count);
    return count > 0;
}

void AddressScanner::eat(AddressToken& token, AddressToken::Kind kind, std::size_t length)
{
    token.kind = kind;
    token.raw = toByteArray(mRest.substr(0, length));
    mRest.remove_prefix(length);
}

bool AddressScanner::takeQuoted(AddressToken& token)
{
    std::size_t i = 1;
    while (i < mRest.size() && mRest[i] != '"')
        i += mRest[i] == '\\' ? 2 : 1;
    mQuotesClose = i < mRest.size();
    if (!mQuotesClose)
        return false;
    token.text = unescaped(mRest.substr(1, i - 1));
    eat(token, AddressToken::Quoted, i + 1);
    return true;
}

bool AddressScanner::takeLiteral(AddressToken& token)
{
    const std::size_t end = mRest.find(']');
    mBracketsClose = end != std::string_view::npos;
    if (!mBracketsClose)
        return false;
    eat(token, AddressToken::Literal, end + 1);
    token.text = token.raw;
    return true;
}

bool AddressScanner::takeComment(AddressToken& token)
{
    int depth = 0;
    std::size_t i = 0;
    for (; i < mRest.size(); ++i) {
        if (mRest[i] == '\\')
            ++i;
        else if (mRest[i] == '(')
            ++depth;
        else if (mRest[i] == ')' && --depth == 0)
            break;
    }
    mCommentsClose = i < mRest.size();
    if (!mCommentsClose)
        return false;
    token.text = unescaped(mRest.substr(1, i - 1));
    eat(token, AddressToken::Comment, i + 1);
    return true;
}

// 0 where none begins. Senders leave "," and blanks in encoded words; what would be an address in
// one is none.
std::size_t AddressScanner::encodedWordLength(std::string_view text) const
{
    const auto word = WordScanner::wordAt(text);
    const bool isName = word && word->payload.find_first_of("<>\"\r\n") == std::string_view::npos;
    return isName ? word->text.size() : 0;
}

std::size_t AddressScanner::atomLength() const
{
    std::size_t i = 0;
    while (i < mRest.size()) {
        const char c = mRest[i];
        const bool ends = kBlanks.find(c) != std::string_view::npos ||
                          kSpecials.find(c) != std::string_view::npos ||
                          (c == '"' && mQuotesClose) || (c == '[' && mBracketsClose) ||
                          (c == '(' && mCommentsClose);
        if (ends)
            break;
        const std::size_t word = c == '=' ? encodedWordLength(mRest.substr(i)) : 0;
        i += word > 0 ? word : 1;
    }
    return i;
}

void AddressScanner::takeAtom(AddressToken& token)
{
    // At least the bracket or quote that nothing closes.
    eat(token, AddressToken::Atom, std::max<std::size_t>(1, atomLength()));
    token.text = token.raw;
}

AddressToken AddressScanner::take()
{
    AddressToken token;
    token.spaceBefore = skipBlanks();
    if (mRest.empty())
        return token;
    const char c = mRest.front();
    if (kSpecials.find(c) != std::string_view::npos) {
        eat(token, AddressToken::Special, 1);
        token.text = token.raw;
        return token;
    }
    const bool taken = (c == '"' && mQuotesClose && takeQuoted(token)) ||
                       (c == '[' && mBracketsClose && takeLiteral(token)) ||
                       (c == '(' && mCommentsClose && takeComment(token));
    if (!taken)
        takeAtom(token);
    return token;
}

} // namespace tarvomime
