// SPDX-License-Identifier: MIT
// A project of its own that knows nothing but the two installed libraries.

#include <extra/SafeFileName.h>
#include <utility/EMAIL_MIME.h>

int main()
{
    const EMAIL_MIME message(QByteArray("Subject: ../plan.pdf\r\n\r\nHello\r\n"));
    const QString name = tarvomime::safeFileName(message.getSubject(CHARSET_UTF_8));
    return name == QLatin1String("plan.pdf") ? 0 : 1;
}
