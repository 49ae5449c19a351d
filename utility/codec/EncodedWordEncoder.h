// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QString>

/// Encoded words (RFC 2047) on their way out: the rules behind `EMAIL_Util::isNeedEncode2047`,
/// `encode_2047_String`, `encode_2047_String_Aux` and `encode_2047_Address`.
namespace tarvomime {

bool needsWords(const QString& text);
/// Sets `out` to the payload of `text` in `charset`, `form` being a transfer encoding.
void encodePayload(const QString& text, int charset, int form, QCString& out);
/// Appends `text` as words to `out`; a text that needs none replaces `out`. Where memory is short,
/// or the words would be too long, `out` becomes empty; so it does in the list below.
void encodeWords(const QString& text, int charset, QCString& out);
/// Sets `out` to the wire form of a comma-separated address list.
void encodeAddresses(const QString& text, int charset, QCString& out);

} // namespace tarvomime
