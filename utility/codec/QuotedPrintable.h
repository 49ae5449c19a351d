// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Numbers.h"
#include "utility/codec/GivenRoom.h"
#include "utility/file/BodyBytes.h"

#include <QByteArray>
#include <optional>
#include <string_view>

class QFile;

/// Quoted-printable (RFC 2045, section 6.7): the rules behind `EMAIL_Util::encQp` and `decQp`.
///
/// Where the encoder departs from the RFC or looks like a slip:
/// 1. It also escapes the space, "!", "\"", "#" and every CR and LF: what it writes survives any
///    gateway, and no white space can be lost at a line's end.
/// 2. It breaks a line after column 68, long before 76, so that an escape fits behind any column.
/// 3. A CR never ends a line: its "=0D" stays beside the "=0A" that normally follows. The line is
///    then broken after the next byte that is not CR, wherever that is.
///
/// The decoder never fails on its text:
/// 1. White space before a line's end stays: a body is given back byte by byte.
/// 2. Digits are not validated: a byte that is none counts as 70, and the sum is taken modulo 256.
/// 3. "=" with fewer than two bytes behind it ends the text, a soft line break apart.
namespace tarvomime {

QByteArray encodeQp(const char* data, unsigned long length, bool breakLines);
int encodeQp(const char* data, unsigned long length, QFile* out, bool breakLines);
int encodeQp(const BodyBytes& data, QFile* out, bool breakLines);
/// Into given room; see GivenRoom.h.
qint64 roomForQp(unsigned long length, bool breakLines);
qint64 encodeQpInto(std::string_view bytes, bool breakLines, GivenRoom given);

/// Nothing when the text cannot be read or there is no memory.
std::optional<QByteArray> decodeQp(const BodyBytes& text, NulByte nulByte);
/// With no memory the result is empty and `*decodedLength` is left alone.
QByteArray decodeQp(std::string_view text, unsigned long* decodedLength,
                    NulByte nulByte = NulByte::IsData);
/// The same into `out`, which has room for the text's length and kDecodingSlack bytes. Returns the
/// number of bytes produced.
std::size_t decodeQpTo(std::string_view text, char* out);
/// The same up to the first NUL; a null pointer of either kind gives an empty array.
QByteArray decodeQp(const char* text, unsigned long* decodedLength);
int decodeQp(const char* text, int length, QFile* out, const ProgressCallback& callback);
int decodeQp(const BodyBytes& text, QFile* out, const ProgressCallback& callback);
/// Into given room; see GivenRoom.h.
qint64 roomFromQp(unsigned long length);
qint64 decodeQpInto(std::string_view text, GivenRoom given);

} // namespace tarvomime
