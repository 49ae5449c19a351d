// SPDX-License-Identifier: MIT
// The functions that the calendar application finds by their plain names: charsets and
// quoted-printable for its own vCalendar files.
#include <QString>
#include <cstdio>
#include <utility/EMAIL_Cal.h>
#include <utility/EMAIL_Util.h>

int main()
{
    const QString summary = QString::fromUtf8("Gewächshaus");

    QCString charsetName;
    charsetEnumToStr_Cal(CHARSET_ISO_8859_1, charsetName);
    QCString bytes;
    encWithCharset_Cal(bytes, summary, CHARSET_ISO_8859_1);
    const QByteArray quoted =
        encQp_Cal(bytes.data(), static_cast<unsigned long>(bytes.length()), 0);
    std::printf("SUMMARY;CHARSET=%s;ENCODING=QUOTED-PRINTABLE:%s\n", charsetName.data(),
                quoted.constData());

    QString decoded;
    decFromCharset_Cal(bytes, decoded, CHARSET_ISO_8859_1);
    std::printf("%s\n", decoded == summary ? "the same text" : "another text");
    return 0;
}
