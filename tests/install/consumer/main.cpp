// SPDX-License-Identifier: MIT
// A project of its own that knows nothing but the installed library.

#include <cstdio>
#include <utility/EMAIL_MIME.h>

int main()
{
    EMAIL_MIME message(QByteArray("Subject: =?utf-8?Q?Gr=C3=BC=C3=9Fe?=\r\n\r\nHello\r\n"));
    const bool decoded = message.getSubject(CHARSET_UTF_8) == QString::fromUtf8("Gr\xC3\xBC\xC3\x9F"
                                                                                "e");
    const QCString& text = message.assemble();
    std::printf("%s", text.data());
    return decoded && text.contains("\r\n\r\nHello\r\n") ? 0 : 1;
}
