// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <string_view>

namespace tarvomime {

/// A piece of an address list.
struct AddressToken
{
    enum Kind {
        /// A run of characters without meaning of their own, or an encoded word.
        Atom,
        /// A quoted string.
        Quoted,
        /// "[...]".
        Literal,
        /// "(...)", however deep it nests.
        Comment,
        /// One of `<>@,:;`, which is `text`.
        Special,
        End
    };

    Kind kind = End;
    /// What it stands for: without quotes, outer brackets of a comment, escapes and folds.
    QByteArray text;
    /// How it is written.
    QByteArray raw;
    /// White space or a comment stands before it.
    bool spaceBefore = false;

    bool is(char special) const { return kind == Special && text.at(0) == special; }
    bool isWord() const { return kind == Atom || kind == Quoted || kind == Literal; }
};

/// Cuts an address list into tokens. A quote or bracket that nothing closes is an ordinary
/// character, and so are all of its kind behind it.
class AddressScanner
{
public:
    explicit AddressScanner(std::string_view text) : mRest(text) {}

    AddressToken take();

private:
    bool skipBlanks();
    bool takeQuoted(AddressToken& token);
    bool takeLiteral(AddressToken& token);
    bool takeComment(AddressToken& token);
    void takeAtom(AddressToken& token);
    std::size_t atomLength() const;
    std::size_t encodedWordLength(std::string_view text) const;
    void eat(AddressToken& token, AddressToken::Kind kind, std::size_t length);

    std::string_view mRest;
    bool mQuotesClose = true;
    bool mBracketsClose = true;
    bool mCommentsClose = true;
};

} // namespace tarvomime
