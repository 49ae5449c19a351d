// SPDX-License-Identifier: MIT
// Saves all attachments of a message into a folder, with a progress bar and a way to cancel. They
// get the names that their sender meant, made safe for a disk, and never overwrite anything.
//
// Bodies are decoded straight from the message file in blocks of 32768 bytes. Before each full
// block the callback is asked: 0 goes on, -1 stops.
#include <QFile>
#include <cstdio>
#include <cstdlib>
#include <extra/AttachmentName.h>
#include <extra/TargetFolder.h>
#include <utility/EMAIL_MIME.h>
#include <utility/EMAIL_MultiPart.h>

using tarvomime::Failure;
using tarvomime::Result;
using tarvomime::TargetFolder;

namespace {

constexpr int blockSize = 32768;

// Decodes one attachment; false when it failed or was cancelled after `patience` blocks.
bool decode(const EMAIL_MultiPart& part, QFile& file, int patience)
{
    const int blocks = part.getSize() / blockSize + 1;
    int done = 0;
    const auto progress = [&] {
        std::fprintf(stderr, "\r%3d %%", 100 * done / blocks);
        return done++ < patience ? 0 : -1;
    };
    if (part.getBody(&file, progress) != 0 || !file.flush())
        return false;
    std::fprintf(stderr, "\r100 %%\n");
    return true;
}

// Saves one attachment under a name of its own; gives that name.
Result<QString> save(const EMAIL_MultiPart& part, const QString& wanted, TargetFolder& folder,
                     int patience)
{
    QFile file;
    Result<QString> name = folder.create(wanted, file);
    if (!name || decode(part, file, patience))
        return name;
    const Result<void> removed = folder.remove(*name);
    return Failure{removed ? QStringLiteral("not saved") : removed.reason()};
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s MESSAGE FOLDER [BLOCKS-BEFORE-CANCEL]\n", argv[0]);
        return 2;
    }
    const int patience = argc > 3 ? std::atoi(argv[3]) : 1000000;
    Result<TargetFolder> folder = TargetFolder::open(QFile::decodeName(argv[2]));
    if (!folder) {
        std::fprintf(stderr, "%s: %s\n", argv[2], folder.reason().toLocal8Bit().constData());
        return 1;
    }
    EMAIL_MIME message;
    if (message.parse(QFile::decodeName(argv[1])) != 0)
        return 1;
    int failures = 0;
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        EMAIL_MultiPart part;
        const QString wanted = tarvomime::attachmentName(message, i);
        if (wanted.isEmpty() || !message.getMultiPart(i, part))
            continue;
        const Result<QString> name = save(part, wanted, *folder, patience);
        const QString& shown = name ? *name : wanted;
        std::printf("%s: %s\n", shown.toUtf8().constData(),
                    name ? "saved" : name.reason().toUtf8().constData());
        failures += name ? 0 : 1;
    }
    return failures == 0 ? 0 : 1;
}
