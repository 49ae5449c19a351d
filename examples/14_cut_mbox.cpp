// SPDX-License-Identifier: MIT
// Lists the messages of an mbox of any size, one in memory at a time.
#include <QFile>
#include <cstdio>
#include <extra/MboxReader.h>
#include <utility/EMAIL_MIME.h>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s MBOX\n", argv[0]);
        return 2;
    }
    QFile file(QFile::decodeName(argv[1]));
    QFile bodies(file.fileName());
    if (!file.open(QIODevice::ReadOnly) || !bodies.open(QIODevice::ReadOnly))
        return 1;
    tarvomime::MboxReader reader(file);
    tarvomime::MboxMessage place;
    while (reader.next(place)) {
        const tarvomime::Result<QByteArray> bytes = tarvomime::readMboxMessage(bodies, place);
        if (!bytes) {
            std::printf("%lld: %s\n", static_cast<long long>(place.offset),
                        qPrintable(bytes.reason()));
            continue;
        }
        const EMAIL_MIME message(*bytes);
        std::printf("%lld: %s, %s\n", static_cast<long long>(place.offset),
                    qPrintable(message.getFrom(CHARSET_UTF_8)),
                    qPrintable(message.getSubject(CHARSET_UTF_8)));
    }
    if (!reader.problem().isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(reader.problem()));
    return reader.problem().isEmpty() ? 0 : 1;
}
