// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "utility/EMAIL_Util.h"

#include <QByteArray>

/// Content-Transfer-Encoding (RFC 2045, section 6): names, the guess for an attachment, and the
/// choice of the codec.
namespace tarvomime {

int transferEncodingFromName(const QCString& name);
QCString transferEncodingName(int encoding);

int guessTransferEncoding(const char* data, int length);
int guessTransferEncoding(const QByteArray& data);

void encodeTransfer(const QByteArray& in, QByteArray& out, int encoding);
int encodeTransfer(const char* data, int length, QFile* file, int encoding);
void decodeTransfer(const QCString& in, QByteArray& out, int encoding);
int decodeTransfer(const char* data, int length, QFile* file, int encoding,
                   const ProgressCallback& callback);

} // namespace tarvomime
