// SPDX-License-Identifier: MIT
// Prints, for each named part of a message, the name to show and the name to write to a disk. What
// senders put there is RFC 2231, encoded words, bytes of some charset, or an attempt to escape.
#include <QFile>
#include <cstdio>
#include <extra/AttachmentName.h>
#include <extra/SafeFileName.h>
#include <utility/EMAIL_MIME.h>

int main(int argc, char** argv)
{
    EMAIL_MIME message;
    if (argc != 2 || message.parse(QFile::decodeName(argv[1])) != 0) {
        std::fprintf(stderr, "usage: %s MESSAGE\n", argv[0]);
        return 2;
    }
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        const QString name = tarvomime::attachmentName(message, i);
        if (name.isEmpty())
            continue;
        const QString fallback = QStringLiteral("part %1").arg(i + 1);
        const QString safe = tarvomime::safeFileName(name, fallback);
        std::printf("%-26s %s\n", safe.toUtf8().constData(),
                    safe == name ? "as it is" : "made safe");
    }
    return 0;
}
