// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

#include "utility/codec/Charset.h"
#include "utility/codec/CharsetNames.h"
#include "utility/codec/DisplayNumber.h"
#include "utility/codec/FileExtensions.h"
#include "utility/codec/MediaTypes.h"
#include "utility/codec/Tokens.h"
#include "utility/codec/Utf7.h"

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
    tarvomime::decodeFromCharset({bytes.constData(), static_cast<std::size_t>(bytes.size())}, out,
                                 cs);
}

bool EMAIL_Util::canEncodeByCharset(QString const& text, int cs)
{
    return tarvomime::canEncodeByCharset(text, cs);
}

bool EMAIL_Util::UTF7ToUCS2(char const* data, unsigned int len, QString& out)
{
    return tarvomime::utf7ToUnicode({data, len}, out);
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
