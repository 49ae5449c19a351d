// SPDX-License-Identifier: MIT
// Saves all attachments of a message into a folder, with a progress bar and a way to cancel.
//
// Bodies are decoded straight from the message file in blocks of 32768 bytes. Before each full
// block the callback is asked: 0 goes on, -1 stops.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <cstdlib>
#include <utility/EMAIL_MIME.h>
#include <utility/EMAIL_MultiPart.h>

namespace {

constexpr int blockSize = 32768;

/// The last component only: a name from a message must not choose the folder.
QString safeName(const EMAIL_MultiPart& part)
{
    const QString name = QFileInfo(part.getDispFileName()).fileName();
    return name == QLatin1String("..") || name == QLatin1String(".") ? QString() : name;
}

/// Saves one attachment; false when it failed or was cancelled after `patience` blocks.
bool save(const EMAIL_MultiPart& part, const QString& path, int patience)
{
    QFile file(path);
    if (file.exists() || !file.open(QIODevice::WriteOnly))
        return false;
    const int blocks = part.getSize() / blockSize + 1;
    int done = 0;
    const auto progress = [&] {
        std::fprintf(stderr, "\r%3d %%", 100 * done / blocks);
        return done++ < patience ? 0 : -1;
    };
    if (part.getBody(&file, progress) == 0) {
        std::fprintf(stderr, "\r100 %%\n");
        return true;
    }
    file.remove();
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s MESSAGE FOLDER [BLOCKS-BEFORE-CANCEL]\n", argv[0]);
        return 2;
    }
    const QDir folder(QFile::decodeName(argv[2]));
    const int patience = argc > 3 ? std::atoi(argv[3]) : 1000000;
    EMAIL_MIME message;
    if (message.parse(QFile::decodeName(argv[1])) != 0)
        return 1;
    int failures = 0;
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        EMAIL_MultiPart part;
        if (!message.getMultiPart(i, part) || safeName(part).isEmpty())
            continue;
        const QString name = safeName(part);
        const bool saved = save(part, folder.filePath(name), patience);
        std::printf("%s: %s\n", name.toUtf8().constData(), saved ? "saved" : "not saved");
        failures += saved ? 0 : 1;
    }
    return failures == 0 ? 0 : 1;
}
