// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace tarvomime {

/// One "=?charset*language?B?payload?=", its pieces as they stand in the text.
struct EncodedWord
{
    std::string_view charset;
    bool isBase64;
    std::string_view payload;
    /// The whole of it.
    std::string_view text;
};

/// Cuts a text into plain text and encoded words. What only begins like a word is plain.
class WordScanner
{
public:
    explicit WordScanner(std::string_view text) : mRest(text) {}

    bool atEnd() const { return mRest.empty(); }
    /// Eats up to the next word or the end, and gives what was eaten.
    std::string_view takePlain();
    /// Eats the word that the rest begins with, as it does behind takePlain() unless it is empty.
    EncodedWord takeWord();

    /// The word that `text` begins with.
    static std::optional<EncodedWord> wordAt(std::string_view text);

private:
    std::string_view mRest;
    EncodedWord mNext{};
};

} // namespace tarvomime
