// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "types/QValueList.h"
#include "types/TarvomimeExport.h"

#include <QByteArray>
#include <QString>
#include <cstdio>
#include <functional>

class QFile;

/// Called without arguments before each block is written to a file: 0 goes on, -1 stops, and the
/// operation then fails with -1. A null callback means "go on".
using ProgressCallback = std::function<int()>;

/// Content-Transfer-Encoding (RFC 2045, section 6).
enum EMAIL_CTE : int {
    CTE_UNKNOWN = 0,
    CTE_7BIT = 1,
    CTE_8BIT = 2,
    CTE_BINARY = 3,
    CTE_QUOTED_PRINTABLE = 4,
    CTE_BASE64 = 5
};

/// Character sets. The numbers are stored and cross the C interface: later additions took the
/// numbers from 20 on, whatever their names.
enum EMAIL_Charset : int {
    CHARSET_UNKNOWN = 0,
    CHARSET_US_ASCII = 1,
    CHARSET_ISO_8859_1 = 2,
    CHARSET_ISO_8859_2 = 3,
    CHARSET_ISO_8859_4 = 4,
    CHARSET_ISO_8859_6 = 5,
    CHARSET_ISO_8859_7 = 6,
    CHARSET_ISO_8859_8 = 7,
    CHARSET_ISO_8859_9 = 8,
    CHARSET_ISO_8859_13 = 9,
    CHARSET_KOI8_U = 10,
    CHARSET_WINDOWS_1251 = 11,
    CHARSET_UTF_7 = 12,
    CHARSET_UTF_8 = 13,
    CHARSET_GB2312 = 14,
    CHARSET_GBK = 15,
    CHARSET_BIG5 = 16,
    CHARSET_TIS620 = 17,
    CHARSET_ISO_8859_11 = 18,
    CHARSET_WINDOWS_874 = 19,
    CHARSET_ISO_8859_5 = 20,
    CHARSET_ISO_8859_3 = 21,
    CHARSET_ISO_8859_10 = 22,
    CHARSET_ISO_8859_15 = 23
};

/// Media types (RFC 2046).
enum EMAIL_MediaType : int {
    TYPE_UNKNOWN = 0,
    TYPE_TEXT = 1,
    TYPE_MULTIPART = 2,
    TYPE_MESSAGE = 3,
    TYPE_APPLICATION = 4,
    TYPE_IMAGE = 5,
    TYPE_AUDIO = 6,
    TYPE_VIDEO = 7
};

/// Stateless operations on wire text that every other class builds on. Nothing here throws.
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
    /// 1. `strip` trims the last piece only, and the test for emptiness comes before the trimming:
    /// a
    ///    tail of white space becomes an empty last piece. The date and address parsers count on
    ///    it.
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
    // to `outLen` and never call the callback.
    //
    // The file forms write to `out`, which is open for writing, in blocks of 32768 bytes or a few
    // more; the decoders read exactly `len` bytes and ask the callback before each block but the
    // last. They return 0 once the file has taken every byte, and -1 when a write failed or the
    // callback returned -1; what was written by then stays in the file.
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
    /// blocks.
    static int openBuffer(QString const& path, FILE*& fp, char*& data, int& size);

    // Charsets.

    static int charsetStrToEnum(QCString const& name);
    static int charsetEnumToStr(int cs, QCString& name);
    static void encWithCharset(QCString& out, QString const& text, int cs);
    static void decFromCharset(QByteArray const& bytes, QString& out, int cs);
    static bool canEncodeByCharset(QString const& text, int cs);
    static bool UTF7ToUCS2(char const* data, unsigned int len, QString& out);

    // Encoded words (RFC 2047).

    static bool isNeedEncode2047(QString const& text);
    static void encode_2047_String(QString const& text, int cs, QCString& out);
    static void encode_2047_String_Aux(QString const& text, int cs, int form, QCString& out);
    static void encode_2047_Address(QString const& text, int cs, QCString& out);
    static void decode_2047_String(QCString const& in, QString& out, int cs);
    static void decode_2047_String_Aux(QCString const& word, QString& out, int cs);

    // Media types, subtypes and file extensions.

    static int typeStrToEnum(QCString const& name);
    static bool typeEnumToStr(int type, QCString& name);
    static int subTypeStrToEnum(QCString const& name);
    static bool subTypeEnumToStr(int subtype, QCString& name);
    static int getSubtypeByExtion(QString const& fileName, int& type);
    static int getExtionBySubType(int subtype, QString& ext);
    static QString getFirstExtByMimeType(int type);
    static QString getDispNum(int n);

    // Dates.

    /// `t` (seconds since the epoch) in local time as a message list shows it, for example
    /// "02:05 pm 03/03"; empty for 0.
    ///
    /// 1. Hours below 13 are "am": noon reads "12:mm am " and midnight "00:mm am ".
    static QString convertTimeFormat(unsigned long t);
};
