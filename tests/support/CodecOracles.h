// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Second versions of the codecs' rules, written for being read and not for speed: what the tests
/// hold the library against. The decoders read all of `text`, NUL bytes included.
namespace oracle {

QByteArray encodeBase64(const QByteArray& data, bool breakLines);
QByteArray decodeBase64(const QByteArray& text);
QByteArray encodeQp(const QByteArray& data, bool breakLines);
QByteArray decodeQp(const QByteArray& text);

} // namespace oracle
