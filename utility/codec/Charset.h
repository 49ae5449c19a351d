// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QString>
#include <string_view>

class QTextCodec;

/// Conversion between Unicode text and the bytes of a charset.
///
/// Each operation has a twin that is told the codec: null stands for a platform that lacks it.
namespace tarvomime {

/// The charset's codec, or null when the platform has none.
QTextCodec* codecOf(int charset);

/// The bytes that `codec` gives for `text`, U+0000 included.
QCString bytesThroughCodec(const QString& text, const QTextCodec* codec);

void encodeWithCharset(QCString& out, const QString& text, int charset);
void encodeWithCharset(QCString& out, const QString& text, int charset, const QTextCodec* codec);

void decodeFromCharset(std::string_view bytes, QString& out, int charset);
void decodeFromCharset(std::string_view bytes, QString& out, int charset, const QTextCodec* codec);

bool canEncodeByCharset(const QString& text, int charset);
bool canEncodeByCharset(const QString& text, int charset, const QTextCodec* codec);

} // namespace tarvomime
