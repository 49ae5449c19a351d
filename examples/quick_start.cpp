// SPDX-License-Identifier: MIT
#include <QFile>
#include <QFileInfo>
#include <utility/EMAIL_MIME.h>
#include <utility/EMAIL_MultiPart.h>

int main(int argc, char** argv)
{
    EMAIL_MIME message;
    if (argc < 2 || message.parse(QFile::decodeName(argv[1])) != 0)
        return 1;
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        EMAIL_MultiPart part;
        if (!message.getMultiPart(i, part) || part.getDispFileName().isEmpty())
            continue;
        QFile file(QFileInfo(part.getDispFileName()).fileName());
        if (file.exists() || !file.open(QIODevice::WriteOnly) || part.getBody(&file) != 0)
            return 1;
    }
    return 0;
}
