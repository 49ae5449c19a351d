// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Cal.h"

#include "utility/EMAIL_Numbers.h"
#include "utility/codec/Charset.h"
#include "utility/codec/CharsetNames.h"
#include "utility/codec/QuotedPrintable.h"

QByteArray encQp_Cal(char const* data, unsigned long len, int breakLines)
{
    return tarvomime::encodeQp(data, len, breakLines);
}

int charsetEnumToStr_Cal(int cs, QCString& name)
{
    return tarvomime::writeCharsetName(cs, name);
}

void encWithCharset_Cal(QCString& out, QString const& text, int cs)
{
    tarvomime::encodeWithCharset(out, text, cs);
}

void decFromCharset_Cal(QByteArray const& bytes, QString& out, int cs)
{
    tarvomime::decodeFromCharset(bytes, out, cs);
}
