// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <optional>
#include <string_view>

class QTextCodec;

/// Conversion between Unicode text and the bytes of a charset: the rules behind
/// `EMAIL_Util::encWithCharset`, `decFromCharset` and `canEncodeByCharset`.
///
/// Each operation has a plain twin (`...ThroughCodec`) that is told the codec, null standing for a
/// platform that lacks it; the others take a table in its place where both give the same, and where
/// memory is short, or the text would be too long, they give an empty text.
namespace tarvomime {

class Utf16Buffer;

/// The charset's codec, or null when the platform has none.
QTextCodec* codecOf(int charset);

/// The bytes that the charset's codec gives for `text`, U+0000 included; its Latin-1 form when
/// there is no codec. Nothing when they could be too many for a text.
std::optional<QByteArray> bytesInCharset(const QString& text, int charset);
QByteArray bytesThroughCodec(const QString& text, const QTextCodec* codec);

void encodeWithCharset(QCString& out, const QString& text, int charset);
void encodeThroughCodec(QCString& out, const QString& text, int charset, const QTextCodec* codec);

void decodeFromCharset(std::string_view bytes, QString& out, int charset);
inline void decodeFromCharset(const QByteArray& bytes, QString& out, int charset)
{
    decodeFromCharset(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())),
                      out, charset);
}
/// Appends what `decodeFromCharset` would set.
void appendFromCharset(std::string_view bytes, int charset, Utf16Buffer& out);
void decodeThroughCodec(std::string_view bytes, QString& out, int charset, const QTextCodec* codec);

bool canEncodeByCharset(const QString& text, int charset);
/// Sets `bytes` to those of `text` if, up to their first NUL, they read as the same text again;
/// false, with nothing to be read from `bytes`, if not and for `CHARSET_UNKNOWN`. Not to be asked
/// of UTF-8, in which every text is written: half a surrogate pair does not come back from there.
bool encodeIfHeld(QByteArray& bytes, const QString& text, int charset);
bool encodeIfHeldThroughCodec(QByteArray& bytes, const QString& text, int charset,
                              const QTextCodec* codec);

} // namespace tarvomime
