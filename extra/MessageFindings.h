// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace tarvomime {

/// How much a finding matters, so that larger is graver.
enum class FindingSeverity {
    /// Worth knowing; nothing is wrong.
    Note,
    /// The sender broke a rule that readers cope with.
    Warning,
    /// Readers lose something, differ in what they show, or are deceived.
    Error
};

/// What was found. `findingName` gives the word for it.
enum class FindingKind {
    /// Bytes that no reader of the parts ever sees; a note where they are an ordinary text in front
    /// of the first part or behind the last.
    BytesInNoPart,
    /// A container that names no boundary, whose boundary never occurs, or that is never closed.
    NoBoundary,
    NoDelimiter,
    NoClosingDelimiter,
    /// A line that almost is a delimiter, or more than one.
    BoundaryNearMiss,
    /// A field that may stand once and stands again.
    DuplicateField,
    /// A file name that tries to escape or to deceive.
    UnsafeName,
    /// An encoded word that holds a line break.
    EncodedLineBreak,
    /// A field of the mail store on mail from elsewhere.
    PrivateField,
    /// A charset label that is not known or does not fit.
    UnknownCharset,
    WrongCharset,
    /// A transfer encoding that is not known.
    UnknownEncoding,
    /// Base64 that ends inside a group of four.
    CutBase64,
    /// The first of the bytes that some readers end a text at.
    NulByte,
    /// A CR without LF, which some readers take for a line end.
    LoneCr,
    /// A line longer than 998 bytes (RFC 5322, section 2.1.1).
    LongLine,
    /// A byte order mark, or the separator line of an mbox (a note), before the first field.
    MarkBeforeHeader,
    /// A header that no empty line ends.
    UnfinishedHeader,
    /// A calendar whose METHOD is not the one of its Content-Type (RFC 6047, section 2.4).
    MethodMismatch,
    /// Parts nested too deep for all of these to be looked for.
    TooDeep
};

/// One thing that a careful reader of a message should know.
struct MessageFinding
{
    FindingKind kind = FindingKind::TooDeep;
    FindingSeverity severity = FindingSeverity::Note;
    /// The part's number, as `partNumber` gives it; empty below a hundred levels, and for what is
    /// about the whole message.
    QByteArray part;
    /// The bytes of the message that it is about; a length of 0 means none in particular.
    qint64 offset = 0;
    qint64 length = 0;
    /// For a person, without full stop. It may hold any character that the message holds.
    QString text;
};

/// All that is to be said about a message, in the order of its parts. Names that do not say their
/// charset are read in `fallbackCharset`.
///
/// What may occur on many lines (NUL, lone CR, long lines) is one finding a header or body, about
/// the first of them. Of lines that almost are delimiters the first five of each sort are findings
/// of their container, of what is wrong with fields the first 32 of each kind; the last says how
/// many more there are. Of the charsets that one field names, 32 are looked at. Texts repeat at
/// most 200 characters of a name, and 64 of a charset or another such word.
///
/// Each level of containers is read through once more, down to the hundredth: below that only
/// headers are looked at.
TARVOMIME_EXTRA_EXPORT QList<MessageFinding>
messageFindings(const QByteArray& message, const QByteArray& fallbackCharset = "windows-1252");

/// A word for programs: "bytes-in-no-part". It stays the same in all versions.
TARVOMIME_EXTRA_EXPORT QByteArray findingName(FindingKind kind);

/// "note", "warning" or "error".
TARVOMIME_EXTRA_EXPORT QByteArray severityName(FindingSeverity severity);

} // namespace tarvomime
