// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

/// Encoded words (RFC 2047) on their way in: the rules behind `EMAIL_Util::decode_2047_String` and
/// `decode_2047_String_Aux`.
namespace tarvomime {

/// Appends the text of a field body to `out`; a body without any word replaces `out`.
void decodeWords(std::string_view body, QString& out, int charset);
/// Decodes one word.
void decodeWord(std::string_view word, QString& out, int charset);

} // namespace tarvomime
