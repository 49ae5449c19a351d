// SPDX-License-Identifier: MIT
#include <QFile>
#include <extra/AttachmentName.h>
#include <extra/TargetFolder.h>
#include <utility/EMAIL_MIME.h>
#include <utility/EMAIL_MultiPart.h>

int main(int argc, char** argv)
{
    EMAIL_MIME message;
    auto folder = tarvomime::TargetFolder::open(QStringLiteral("."));
    if (argc < 2 || !folder || message.parse(QFile::decodeName(argv[1])) != 0)
        return 1;
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        EMAIL_MultiPart part;
        const QString name = tarvomime::attachmentName(message, i);
        if (name.isEmpty() || !message.getMultiPart(i, part))
            continue;
        QFile file;
        if (!folder->create(name, file) || part.getBody(&file) != 0)
            return 1;
    }
    return 0;
}
