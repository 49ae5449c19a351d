// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Numbers.h"
#include "utility/codec/GivenRoom.h"
#include "utility/file/BodyBytes.h"

#include <QByteArray>
#include <optional>
#include <string_view>

class QFile;

/// Base64 (RFC 2045, section 6.8): the rules behind `EMAIL_Util::encB64` and `decB64`.
///
/// The decoder never fails on its text. Where it departs from the RFC or looks like a slip:
/// 1. The bytes 0xEC to 0xFF are the digit "A" and not skipped: stored mail was decoded by a table
///    of 236 entries with zeros behind them, and decodes the same today.
/// 2. A padded group does not end the text: the groups behind it are decoded too, so that texts
///    that were encoded piecewise read as one.
/// 3. A trailing group of fewer than four characters is dropped.
/// 4. Only "==" as third and fourth character and "=" as fourth shorten a group. A "=" elsewhere
///    counts as 64, and the sums are taken modulo 256.
namespace tarvomime {

QByteArray encodeBase64(const char* data, unsigned long length, bool breakLines);
int encodeBase64(const char* data, unsigned long length, QFile* out, bool breakLines);
int encodeBase64(const BodyBytes& data, QFile* out, bool breakLines);
/// The length of what `length` bytes are encoded to.
std::size_t encodedBase64Length(std::size_t length, bool breakLines);
/// Writes the base64 of `bytes` to `out`, which has exactly the room for it. Returns its end.
char* encodeBase64To(std::string_view bytes, char* out, bool breakLines);
/// The same into given room; see GivenRoom.h.
qint64 roomForBase64(unsigned long length, bool breakLines);
qint64 encodeBase64Into(std::string_view bytes, bool breakLines, GivenRoom given);

/// Nothing when the text cannot be read or there is no memory.
std::optional<QByteArray> decodeBase64(const BodyBytes& text, NulByte nulByte);
/// With an empty text or no memory the result is empty and `*decodedLength` is left alone.
QByteArray decodeBase64(std::string_view text, unsigned long* decodedLength,
                        NulByte nulByte = NulByte::IsData);
/// The same into `out`, which has room for the text's length and kDecodingSlack bytes. Returns the
/// number of bytes produced.
std::size_t decodeBase64To(std::string_view text, char* out);
/// The same up to the first NUL; a null pointer of either kind gives an empty array.
QByteArray decodeBase64(const char* text, unsigned long* decodedLength);
int decodeBase64(const char* text, int length, QFile* out, const ProgressCallback& callback);
int decodeBase64(const BodyBytes& text, QFile* out, const ProgressCallback& callback);
/// Into given room; see GivenRoom.h.
qint64 roomFromBase64(unsigned long length);
qint64 decodeBase64Into(std::string_view text, GivenRoom given);

} // namespace tarvomime
