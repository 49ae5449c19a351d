// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "types/QValueList.h"
#include "types/TarvomimeExport.h"
#include "utility/EMAIL_Numbers.h"

#include <QByteArray>
#include <QString>
#include <cstdio>

class QFile;

/// Stateless operations on wire text that every other class builds on. Nothing here throws, but
/// that the string types may do it for a list of pieces: a text for which there is no memory, or
/// that would be longer than `QCString::longestLength`, becomes empty, with -1, 0 or `false` as the
/// result where there is one.
class TARVOMIME_EXPORT EMAIL_Util
{
public:
    // Tokenising. These know nothing of quotes, comments or escapes: a separator inside a quoted
    // string splits like any other. Bytes are compared exactly. The separator comes first.

    /// Splits `src` at the first `sep`: `left` is what stands before it, `right` all that follows,
    /// both trimmed of white space when `strip` is set. Without a separator `left` is all of `src`
    /// and `right` keeps what it held; an empty `src` leaves both alone.
    static void split(QCString const& sep, QCString const& src, QCString& left, QCString& right,
                      bool strip);
    /// Splits `src` at every `sep`, dropping empty pieces. An empty `sep` gives the whole text as
    /// one piece.
    ///
    /// 1. `strip` trims the last piece only, after the test for emptiness: a tail of white space
    ///    becomes an empty last piece. The date and address parsers count on it.
    static QValueList<QCString> split(QCString const& sep, QCString const& src, bool strip);
    /// Copies `src` without the run of `c` at either end to `out`; a text made of `c` only is
    /// copied unchanged.
    ///
    /// 1. A text of two bytes or fewer leaves `out` alone, so that a lone pair of quotes survives.
    static void stripChar(char c, QCString const& src, QCString& out);

    // Base64 (RFC 2045, section 6.8) and quoted-printable (section 6.7).
    //
    // The memory forms return the result as an array; it is empty for a null pointer and when there
    // is no memory for it. The decoders read up to the terminating NUL, write the result's length
    // to `outLen`, which a null pointer or missing memory leaves alone, and never call the
    // callback.
    //
    // The file forms write to `out`, which is open for writing, in blocks of 32768 bytes or a few
    // more; the decoders read exactly `len` bytes and ask the callback before each such block, but
    // not before the shorter rest at the end. They return 0 once the file has taken every byte, and
    // -1 when a write failed or the callback returned -1; what was written by then stays in the
    // file.
    //
    // No text is an error for a decoder.

    /// `breakLines` non-zero ends lines of 76 characters, and the last one, with CR LF; 0 gives one
    /// run without any line end.
    static QByteArray encB64(char const* data, unsigned long len, int breakLines);
    static int encB64(char const* data, unsigned long len, QFile* out, int breakLines);
    /// Bytes outside the alphabet are skipped, all but 0xEC to 0xFF, which are read as "A"; padded
    /// groups may be followed by others; an incomplete last group is dropped. An empty text leaves
    /// `outLen` alone.
    static QByteArray decB64(char const* text, unsigned long* outLen,
                             const ProgressCallback& cb = nullptr);
    static int decB64(char const* text, int len, QFile* out, const ProgressCallback& cb = nullptr);

    /// Escapes controls (CR and LF too), the space, "!", "\"", "#", "=" and every byte from 0x7F
    /// on. `breakLines` non-zero inserts soft line breaks behind column 68 and ends the text with
    /// CR LF; 0 gives one run without any line end.
    static QByteArray encQp(char const* data, unsigned long len, int breakLines);
    static int encQp(char const* data, unsigned long len, QFile* out, int breakLines);
    /// Keeps white space at line ends and does not check digits; a "=" with fewer than two bytes
    /// behind it ends the text.
    static QByteArray decQp(char const* text, unsigned long* outLen,
                            const ProgressCallback& cb = nullptr);
    static int decQp(char const* text, int len, QFile* out, const ProgressCallback& cb = nullptr);

    // The same rules from bytes of a known length, NUL bytes included, into room that the caller
    // has: nothing is allocated, and no text is searched for its end.

    /// How many bytes of room the operations below ask for, given `len` bytes: `encB64To` fills it
    /// exactly, the others at most. -1 for a length from 2^60 on.
    static qint64 encB64Room(unsigned long len, int breakLines);
    static qint64 decB64Room(unsigned long len);
    static qint64 encQpRoom(unsigned long len, int breakLines);
    static qint64 decQpRoom(unsigned long len);
    /// Writes the result to `out`, which has `room` bytes and does not overlap the input, and
    /// returns its length; what lies behind it in the room may be overwritten. Returns -1, and
    /// writes nothing, when `room` is less than was asked for or a pointer is null.
    static qint64 encB64To(char const* data, unsigned long len, int breakLines, char* out,
                           unsigned long room);
    static qint64 decB64To(char const* text, unsigned long len, char* out, unsigned long room);
    static qint64 encQpTo(char const* data, unsigned long len, int breakLines, char* out,
                          unsigned long room);
    static qint64 decQpTo(char const* text, unsigned long len, char* out, unsigned long room);

    // Transfer encodings and streamed output.

    /// The `EMAIL_CTE` whose name `name` holds, in any case and with anything around it; else
    /// `CTE_UNKNOWN`.
    static int cteStrToEnum(QCString const& name);
    /// The name of an `EMAIL_CTE`; "7bit" for `CTE_UNKNOWN` and for every other number.
    static QCString cteEnumToStr(int cte);
    /// The encoding for an attachment, judged by its first 4096 bytes: `CTE_BASE64` when more than
    /// a tenth of them would be escaped in quoted-printable, else `CTE_QUOTED_PRINTABLE`, also for
    /// a null pointer.
    static int guessRightCTE(char const* data, int len);
    static int guessRightCTE(QByteArray const& data);
    /// Encodes with line breaks as `cte` says; any value but `CTE_QUOTED_PRINTABLE` and
    /// `CTE_BASE64` copies the bytes. The file form returns 0 or -1.
    static void encWithCTE(QByteArray const& in, QByteArray& out, int cte);
    static int encWithCTE(char const* data, int len, QFile* file, int cte);
    /// The reverse. In memory the text ends at its first NUL. The file form returns 0, -1, or,
    /// where bytes are copied, the callback's non-zero value.
    static void decFromCTE(QCString const& in, QByteArray& out, int cte,
                           const ProgressCallback& cb = nullptr);
    static int decFromCTE(char const* data, int len, QFile* file, int cte,
                          const ProgressCallback& cb = nullptr);
    /// Writes the `used` bytes of `buf` once they are `threshold` or more, then clears the first
    /// four bytes of `buf` (which holds at least four) and sets `used` to 0. Returns 0, also when
    /// there was nothing to write yet; -1 when the file did not take the bytes; the callback's
    /// answer when it is not 0, with nothing written and `used` as it was.
    static int writeFile(QFile* file, char* buf, int& used, int threshold,
                         const ProgressCallback& cb = nullptr);
    /// Writes `len` bytes in blocks of 32768, asking the callback before each block, the last one
    /// included. Returns 0, -1, or the callback's non-zero value.
    static int writeRawData(char const* data, int len, QFile* file,
                            const ProgressCallback& cb = nullptr);
    /// Maps the whole file at `path` read-only and private. Returns 0 and gives the caller the
    /// mapping (`munmap(data, size)`) and the stream (`fclose(fp)`); or -1 with nothing left open
    /// and the arguments as they were: for a file that cannot be opened for reading and writing,
    /// for anything but a regular file, for an empty one and for one of 2 GiB or more. Never
    /// blocks. Should the file be cut short, looking at what it lost ends the program (SIGBUS).
    static int openBuffer(QString const& path, FILE*& fp, char*& data, int& size);

    // Charsets. Values outside `EMAIL_Charset` count as US-ASCII, which is read and written through
    // the codec of ISO 8859-1. Unicode text is UTF-16.

    /// The charset whose name `name` holds, in any case and with anything around it; else
    /// `CHARSET_UNKNOWN`, also for a null or empty name. "koi8-r" is read as `CHARSET_KOI8_U`.
    static int charsetStrToEnum(QCString const& name);
    /// Sets `name` to the name that messages carry ("us-ascii" for an unknown value); returns 1.
    static int charsetEnumToStr(int cs, QCString& name);
    /// Sets `out` to the bytes of `text` in the charset, U+0000 included; what the charset lacks
    /// becomes what the platform's codec puts in its place. UTF-7 is never written: `out` keeps
    /// its contents. On a platform without the codec `out` becomes the Latin-1 form of `text`.
    static void encWithCharset(QCString& out, QString const& text, int cs);
    /// Sets `out` to the text that `bytes` stand for; no bytes leave it alone. Malformed UTF-8
    /// gives replacement characters; a character that the end cuts gives nothing in the other
    /// charsets. On a platform without the codec the bytes are read as UTF-8.
    static void decFromCharset(QByteArray const& bytes, QString& out, int cs);
    /// Whether `text` comes back from a trip through the charset: always for `CHARSET_UTF_8`, never
    /// for `CHARSET_UNKNOWN` or, outside UTF-8, with a U+0000 in it.
    ///
    /// 1. `CHARSET_US_ASCII` and `CHARSET_UTF_7` hold all of Latin-1: they share its codec.
    static bool canEncodeByCharset(QString const& text, int cs);
    /// Sets `out` to the text of `len` bytes of UTF-7 (RFC 2152); false for no bytes, with `out`
    /// left alone, or for too many. An 8-bit byte gives a replacement character and ends a shifted
    /// run; bits left over at a run's end are dropped.
    static bool UTF7ToUCS2(char const* data, unsigned int len, QString& out);

    // Encoded words (RFC 2047), "=?charset?B?...?=". Writing always uses the B form; reading never
    // fails: a word that is not understood stays as it is.

    /// Whether some UTF-16 unit of `text` is above 0x80. U+0080 itself needs no word.
    static bool isNeedEncode2047(QString const& text);
    /// Appends `text` to `out` as words of at most 72 characters, joined by CR LF TAB; a text that
    /// needs no word replaces `out` by its Latin-1 form. What the charset cannot hold is written in
    /// UTF-8. A long text is cut by halving the rest until it fits; a surrogate pair is never cut.
    ///
    /// 1. ISO 8859-3, -5, -10 and -15 have no label of their own: they are written as ISO 8859-1.
    static void encode_2047_String(QString const& text, int cs, QCString& out);
    /// Sets `out` to the payload of one word: base64 when `form` is `CTE_BASE64`, else
    /// quoted-printable by the rules for bodies (a space is "=20"; "?" and "_" stay). An empty
    /// `text` leaves `out` alone.
    static void encode_2047_String_Aux(QString const& text, int cs, int form, QCString& out);
    /// Sets `out` to the wire form of a list of addresses, split at every ",", quoted or not: what
    /// stands before the last "<" of an item becomes words, the rest bytes of the charset. An item
    /// without "<", or with nothing before it, becomes bytes as a whole. The bytes, and a name that
    /// needs no words, end at a U+0000. A list without items leaves `out` alone.
    static void encode_2047_Address(QString const& text, int cs, QCString& out);
    /// Appends the text of a field body with words to `out`, its line ends and the white space
    /// behind each word dropped; text beside words is Latin-1. A body without words replaces `out`
    /// by its text in `cs`, `CHARSET_UNKNOWN` standing for `CHARSET_GB2312`; an empty one leaves
    /// `out` alone. From a word without an end on, the body is kept as it stands, as Latin-1.
    static void decode_2047_String(QCString const& in, QString& out, int cs);
    /// Sets `out` to the text of one word: Latin-1 as it stands when the charset is unknown or the
    /// word has no end; the bytes in `cs` (as above) when it is no word. Without any bytes to
    /// decode, or of a form other than B and Q, it leaves `out` alone.
    static void decode_2047_String_Aux(QCString const& word, QString& out, int cs);

    // Media types, subtypes and file extensions. Subtypes are one flat numbering for all types, 1
    // to 98, 0 standing for unknown; a subtype is recognised under any type.

    /// The `EMAIL_MediaType` of that name, in any case, compared whole; else `TYPE_UNKNOWN`.
    static int typeStrToEnum(QCString const& name);
    /// Sets `name` to the type's name; false, with `name` left alone, outside 1 to 7.
    static bool typeEnumToStr(int type, QCString& name);
    /// The subtype of that name, in any case, compared whole; else 0.
    ///
    /// 1. "byterantes" is read and written for multipart/byteranges, which is not read.
    /// 2. "GSM-EFR" is written but not read; "gsm_efr", "enriched", "xml" and "java-vm" are read
    ///    but not written.
    static int subTypeStrToEnum(QCString const& name);
    /// Sets `name` to the subtype's name; false, with `name` left alone, when it has none.
    static bool subTypeEnumToStr(int subtype, QCString& name);
    /// The subtype for a file's last extension, `type` being set to its type; 0, with `type` left
    /// alone, for an unknown extension or none. Some known ones ("mng", "amr") have subtype 0 too.
    static int getSubtypeByExtion(QString const& fileName, int& type);
    /// Sets `ext` to the extension for a subtype and returns its type; 0, with `ext` left alone,
    /// when it has none.
    static int getExtionBySubType(int subtype, QString& ext);
    /// The extension for a part of which only the type is known; empty but for image, audio and
    /// video.
    static QString getFirstExtByMimeType(int type);
    /// `n` in decimal, with a "0" before it when it is below ten ("-3" becomes "0-3").
    static QString getDispNum(int n);

    // Dates.

    /// `t` (seconds since the epoch) in local time as a message list shows it, for example
    /// "02:05 pm 03/03"; empty for 0.
    ///
    /// 1. Hours below 13 are "am": noon reads "12:mm am " and midnight "00:mm am ".
    static QString convertTimeFormat(unsigned long t);
};
