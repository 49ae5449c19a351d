// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Util.h"

#include <string_view>

/// The codecs built a second time without their vectorised paths, from the same sources under
/// another name: the plain twins that the fast paths are held equal to.
namespace tarvomime_plain {

enum class NulByte { IsData, EndsText };

QByteArray encodeBase64(const char* data, unsigned long length, bool breakLines);
int encodeBase64(const char* data, unsigned long length, QFile* out, bool breakLines);
QByteArray decodeBase64(std::string_view text, unsigned long* decodedLength, NulByte nulByte);
int decodeBase64(const char* text, int length, QFile* out, const ProgressCallback& callback);

QByteArray encodeQp(const char* data, unsigned long length, bool breakLines);
int encodeQp(const char* data, unsigned long length, QFile* out, bool breakLines);
QByteArray decodeQp(std::string_view text, unsigned long* decodedLength, NulByte nulByte);
int decodeQp(const char* text, int length, QFile* out, const ProgressCallback& callback);

} // namespace tarvomime_plain
