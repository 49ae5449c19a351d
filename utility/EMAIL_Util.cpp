// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

#include "utility/codec/Base64.h"
#include "utility/codec/Charset.h"
#include "utility/codec/CharsetNames.h"
#include "utility/codec/EncodedWordDecoder.h"
#include "utility/codec/EncodedWordEncoder.h"
#include "utility/codec/FileExtensions.h"
#include "utility/codec/MediaTypes.h"
#include "utility/codec/QuotedPrintable.h"
#include "utility/codec/TransferEncoding.h"
#include "utility/codec/Utf7.h"
#include "utility/file/BlockWriter.h"
#include "utility/file/MappedFile.h"
#include "utility/text/Tokens.h"
#include "utility/time/DisplayNumber.h"
#include "utility/time/LocalTime.h"

void EMAIL_Util::split(QCString const& sep, QCString const& src, QCString& left, QCString& right,
                       bool strip)
{
    tarvomime::splitAtFirst(sep, src, left, right, strip);
}

QValueList<QCString> EMAIL_Util::split(QCString const& sep, QCString const& src, bool strip)
{
    return tarvomime::splitAtEvery(sep, src, strip);
}

void EMAIL_Util::stripChar(char c, QCString const& src, QCString& out)
{
    tarvomime::stripChar(c, src, out);
}

QByteArray EMAIL_Util::encB64(char const* data, unsigned long len, int breakLines)
{
    return tarvomime::encodeBase64(data, len, breakLines != 0);
}

int EMAIL_Util::encB64(char const* data, unsigned long len, QFile* out, int breakLines)
{
    return tarvomime::encodeBase64(data, len, out, breakLines != 0);
}

QByteArray EMAIL_Util::decB64(char const* text, unsigned long* outLen, const ProgressCallback&)
{
    return tarvomime::decodeBase64(text, outLen);
}

int EMAIL_Util::decB64(char const* text, int len, QFile* out, const ProgressCallback& cb)
{
    return tarvomime::decodeBase64(text, len, out, cb);
}

QByteArray EMAIL_Util::encQp(char const* data, unsigned long len, int breakLines)
{
    return tarvomime::encodeQp(data, len, breakLines != 0);
}

int EMAIL_Util::encQp(char const* data, unsigned long len, QFile* out, int breakLines)
{
    return tarvomime::encodeQp(data, len, out, breakLines != 0);
}

QByteArray EMAIL_Util::decQp(char const* text, unsigned long* outLen, const ProgressCallback&)
{
    return tarvomime::decodeQp(text, outLen);
}

int EMAIL_Util::decQp(char const* text, int len, QFile* out, const ProgressCallback& cb)
{
    return tarvomime::decodeQp(text, len, out, cb);
}

qint64 EMAIL_Util::encB64Room(unsigned long len, int breakLines)
{
    return tarvomime::roomForBase64(len, breakLines != 0);
}

qint64 EMAIL_Util::decB64Room(unsigned long len)
{
    return tarvomime::roomFromBase64(len);
}

qint64 EMAIL_Util::encQpRoom(unsigned long len, int breakLines)
{
    return tarvomime::roomForQp(len, breakLines != 0);
}

qint64 EMAIL_Util::decQpRoom(unsigned long len)
{
    return tarvomime::roomFromQp(len);
}

qint64 EMAIL_Util::encB64To(char const* data, unsigned long len, int breakLines, char* out,
                            unsigned long room)
{
    return tarvomime::encodeBase64Into({data, len}, breakLines != 0, {out, room});
}

qint64 EMAIL_Util::decB64To(char const* text, unsigned long len, char* out, unsigned long room)
{
    return tarvomime::decodeBase64Into({text, len}, {out, room});
}

qint64 EMAIL_Util::encQpTo(char const* data, unsigned long len, int breakLines, char* out,
                           unsigned long room)
{
    return tarvomime::encodeQpInto({data, len}, breakLines != 0, {out, room});
}

qint64 EMAIL_Util::decQpTo(char const* text, unsigned long len, char* out, unsigned long room)
{
    return tarvomime::decodeQpInto({text, len}, {out, room});
}

int EMAIL_Util::cteStrToEnum(QCString const& name)
{
    return tarvomime::transferEncodingFromName(name);
}

QCString EMAIL_Util::cteEnumToStr(int cte)
{
    return tarvomime::transferEncodingName(cte);
}

int EMAIL_Util::guessRightCTE(char const* data, int len)
{
    return tarvomime::guessTransferEncoding(data, len);
}

int EMAIL_Util::guessRightCTE(QByteArray const& data)
{
    return tarvomime::guessTransferEncoding(data);
}

void EMAIL_Util::encWithCTE(QByteArray const& in, QByteArray& out, int cte)
{
    tarvomime::encodeTransfer(in, out, cte);
}

int EMAIL_Util::encWithCTE(char const* data, int len, QFile* file, int cte)
{
    return tarvomime::encodeTransfer(tarvomime::BodyBytes(data, len), file, cte);
}

void EMAIL_Util::decFromCTE(QCString const& in, QByteArray& out, int cte, const ProgressCallback&)
{
    out = tarvomime::decodeTransfer(tarvomime::BodyBytes(in.view()), cte).value_or(QByteArray());
}

int EMAIL_Util::decFromCTE(char const* data, int len, QFile* file, int cte,
                           const ProgressCallback& cb)
{
    return tarvomime::decodeTransfer(tarvomime::BodyBytes(data, len), file, cte, cb);
}

int EMAIL_Util::writeFile(QFile* file, char* buf, int& used, int threshold,
                          const ProgressCallback& cb)
{
    return tarvomime::writeFile(file, buf, used, threshold, cb);
}

int EMAIL_Util::writeRawData(char const* data, int len, QFile* file, const ProgressCallback& cb)
{
    return tarvomime::writeRawData(data, len, file, cb);
}

int EMAIL_Util::openBuffer(QString const& path, FILE*& fp, char*& data, int& size)
{
    return tarvomime::mapFile(path, fp, data, size);
}

int EMAIL_Util::charsetStrToEnum(QCString const& name)
{
    return tarvomime::charsetFromName(name.view());
}

int EMAIL_Util::charsetEnumToStr(int cs, QCString& name)
{
    return tarvomime::writeCharsetName(cs, name);
}

void EMAIL_Util::encWithCharset(QCString& out, QString const& text, int cs)
{
    tarvomime::encodeWithCharset(out, text, cs);
}

void EMAIL_Util::decFromCharset(QByteArray const& bytes, QString& out, int cs)
{
    tarvomime::decodeFromCharset(bytes, out, cs);
}

bool EMAIL_Util::canEncodeByCharset(QString const& text, int cs)
{
    return tarvomime::canEncodeByCharset(text, cs);
}

bool EMAIL_Util::UTF7ToUCS2(char const* data, unsigned int len, QString& out)
{
    return tarvomime::utf7ToUnicode({data, len}, out);
}

bool EMAIL_Util::isNeedEncode2047(QString const& text)
{
    return tarvomime::needsWords(text);
}

void EMAIL_Util::encode_2047_String(QString const& text, int cs, QCString& out)
{
    tarvomime::encodeWords(text, cs, out);
}

void EMAIL_Util::encode_2047_String_Aux(QString const& text, int cs, int form, QCString& out)
{
    tarvomime::encodePayload(text, cs, form, out);
}

void EMAIL_Util::encode_2047_Address(QString const& text, int cs, QCString& out)
{
    tarvomime::encodeAddresses(text, cs, out);
}

void EMAIL_Util::decode_2047_String(QCString const& in, QString& out, int cs)
{
    tarvomime::decodeWords(in.view(), out, cs);
}

void EMAIL_Util::decode_2047_String_Aux(QCString const& word, QString& out, int cs)
{
    tarvomime::decodeWord(word.view(), out, cs);
}

int EMAIL_Util::typeStrToEnum(QCString const& name)
{
    return tarvomime::mediaTypeFromName(name);
}

bool EMAIL_Util::typeEnumToStr(int type, QCString& name)
{
    return tarvomime::writeMediaTypeName(type, name);
}

int EMAIL_Util::subTypeStrToEnum(QCString const& name)
{
    return tarvomime::subtypeFromName(name);
}

bool EMAIL_Util::subTypeEnumToStr(int subtype, QCString& name)
{
    return tarvomime::writeSubtypeName(subtype, name);
}

int EMAIL_Util::getSubtypeByExtion(QString const& fileName, int& type)
{
    return tarvomime::subtypeByExtension(fileName, type);
}

int EMAIL_Util::getExtionBySubType(int subtype, QString& ext)
{
    return tarvomime::extensionBySubtype(subtype, ext);
}

QString EMAIL_Util::getFirstExtByMimeType(int type)
{
    return tarvomime::firstExtensionOfType(type);
}

QString EMAIL_Util::getDispNum(int n)
{
    return tarvomime::paddedNumber(n);
}

QString EMAIL_Util::convertTimeFormat(unsigned long t)
{
    return tarvomime::displayTime(t);
}
