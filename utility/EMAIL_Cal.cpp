// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Cal.h"

#include "utility/EMAIL_Util.h"

QByteArray encQp_Cal(char const* data, unsigned long len, int breakLines)
{
    return EMAIL_Util::encQp(data, len, breakLines);
}

int charsetEnumToStr_Cal(int cs, QCString& name)
{
    return EMAIL_Util::charsetEnumToStr(cs, name);
}

void encWithCharset_Cal(QCString& out, QString const& text, int cs)
{
    EMAIL_Util::encWithCharset(out, text, cs);
}

void decFromCharset_Cal(QByteArray const& bytes, QString& out, int cs)
{
    EMAIL_Util::decFromCharset(bytes, out, cs);
}
