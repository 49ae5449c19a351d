// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

#include "utility/codec/Tokens.h"

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
