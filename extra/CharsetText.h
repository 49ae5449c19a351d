// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Result.h"
#include "extra/TarvomimeExtraExport.h"

#include <QByteArray>
#include <QString>

namespace tarvomime {

/// What a charset was chosen by.
enum class CharsetBasis {
    /// The message says so, and the bytes do not contradict.
    Declared,
    /// The HTML itself says so.
    DeclaredInHtml,
    /// All bytes are plain ASCII.
    Ascii,
    /// The bytes are UTF-8, which text of another charset hardly ever is by chance.
    ValidUtf8,
    /// The bytes hold escape sequences of ISO 2022.
    Escapes,
    /// Bytes that ISO 8859-1 keeps for controls are letters and quotes in windows-1252.
    Windows1252Letters,
    /// Letters and their neighbours look like a language written in this charset.
    Statistics,
    /// Nothing pointed anywhere.
    Fallback
};

/// A charset for reading bytes, and why this one.
struct ProposedCharset
{
    /// A name that `textFromCharset` takes.
    QByteArray name;
    CharsetBasis basis = CharsetBasis::Fallback;
};

/// Text that was read, and how.
struct ReadText
{
    QString text;
    ProposedCharset charset;
};

/// Whether text in the charset of this name can be read.
TARVOMIME_EXTRA_EXPORT bool isReadableCharset(const QByteArray& name);

/// The text that `bytes` stand for in the charset called `name`: one of the numbered charsets, or
/// any other that Qt has a codec for ("windows-1252", "iso-2022-jp", "euc-kr", "macintosh"), under
/// any of its usual names. Bytes that mean nothing become U+FFFD. Fails for a charset that is not
/// known.
TARVOMIME_EXTRA_EXPORT Result<QString> textFromCharset(const QByteArray& bytes,
                                                       const QByteArray& name);

/// The charset that bytes without a label are most likely in: by rule where rules are certain
/// (plain ASCII, valid UTF-8, the escape sequences of ISO 2022), else by the statistics of letters,
/// else `fallback`. Bytes that are valid UTF-8 and hold no such escape sequence are never proposed
/// as anything but UTF-8 (or "us-ascii" where all are plain).
TARVOMIME_EXTRA_EXPORT ProposedCharset proposeCharset(const QByteArray& bytes,
                                                      const QByteArray& fallback = "windows-1252");

/// Reads `bytes` in the charset `declared`, without guessing. Fails where that charset is unknown,
/// or cannot be (8-bit bytes in us-ascii, text that is no UTF-8, or that a multi-byte charset gives
/// no meaning to).
///
/// A declared UTF-8 is believed as long as half of its characters are whole, another multi-byte
/// charset as long as nine of ten are. ISO 8859-1 with bytes that it keeps for controls is read as
/// windows-1252, its superset.
TARVOMIME_EXTRA_EXPORT Result<ReadText> readDeclaredText(const QByteArray& bytes,
                                                         const QByteArray& declared);

/// Reads `bytes` as a person would want to see them: in the charset `declared`, or in the proposed
/// one where `readDeclaredText` fails.
TARVOMIME_EXTRA_EXPORT ReadText readText(const QByteArray& bytes, const QByteArray& declared,
                                         const QByteArray& fallback = "windows-1252");

/// What the choice is based on, in a few words for a person: "valid UTF-8".
TARVOMIME_EXTRA_EXPORT QString describeBasis(CharsetBasis basis);

} // namespace tarvomime
