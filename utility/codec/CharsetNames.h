// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "utility/EMAIL_Numbers.h"

#include <string_view>

/// Charsets and their names: in messages, as read and as the codecs know them.
namespace tarvomime {

constexpr int kCharsetCount = CHARSET_ISO_8859_15 + 1;

/// `charset`, or 0 in place of a value that is no charset's.
constexpr int knownCharset(int charset)
{
    return charset >= 0 && charset < kCharsetCount ? charset : int{CHARSET_UNKNOWN};
}

int charsetFromName(std::string_view name);
/// The same for a name with nothing around it, faster; `CHARSET_UNKNOWN` for any other.
int charsetOfExactName(std::string_view name);
int writeCharsetName(int charset, QCString& name);
/// The name that messages carry.
std::string_view mimeCharsetName(int charset);
/// The name to look the charset's codec up by.
const char* codecName(int charset);
/// Whether that codec has one byte for every character.
bool isSingleByte(int charset);

} // namespace tarvomime
