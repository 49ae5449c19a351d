// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/file/BodyBytes.h"

#include <QByteArray>
#include <optional>
#include <string_view>

class QFile;

/// Content-Transfer-Encoding (RFC 2045, section 6): names, the guess for an attachment, and the
/// choice of the codec.
namespace tarvomime {

int transferEncodingFromName(const QCString& name);
QCString transferEncodingName(int encoding);

int guessTransferEncoding(const char* data, int length);
int guessTransferEncoding(const QByteArray& data);
/// Nothing when the bytes cannot be read.
std::optional<int> guessTransferEncoding(const BodyBytes& data);

void encodeTransfer(const QByteArray& in, QByteArray& out, int encoding);
/// 0, or -1 when the bytes cannot be read or the file does not take them.
int encodeTransfer(const BodyBytes& in, QFile* file, int encoding);

/// The decoded bytes of a text that a NUL ends; nothing when it cannot be read or there is no room
/// for them.
std::optional<QByteArray> decodeTransfer(const BodyBytes& in, int encoding);
/// Decodes all bytes, NUL or not, into `file`. 0, or -1 when they cannot be read or the file does
/// not take them, or the answer with which `callback` refused a block.
int decodeTransfer(const BodyBytes& in, QFile* file, int encoding,
                   const ProgressCallback& callback);

/// The decoded bytes up to the first NUL of what is stored: where they stand in memory as they are,
/// else in `room`. Nothing when they cannot be read or there is no room for them.
std::optional<std::string_view> decodedBytes(const BodyBytes& body, int encoding, QByteArray& room);
/// Writes the decoded bytes of `body`: those of a body in a file all, block by block, and asking
/// `callback`; those of one in memory at once and up to the first NUL of what is stored. Returns 0,
/// -1 when they cannot be read or `file` does not take them, or the answer with which `callback`
/// refused a block.
int writeDecoded(const BodyBytes& body, int encoding, QFile* file,
                 const ProgressCallback& callback);

} // namespace tarvomime
