// SPDX-License-Identifier: MIT
// Strips a stored message of the phone's private bookkeeping, and of Bcc, before it is sent.
#include <QFile>
#include <cstdio>
#include <utility/EMAIL_Field.h>
#include <utility/EMAIL_Header.h>
#include <utility/EMAIL_MIME.h>

namespace {

void printNames(const char* when, const EMAIL_MIME& message)
{
    std::printf("%s:", when);
    for (const EMAIL_Field* field : message.getHeader()->mFields)
        std::printf(" %s", field->mName.data());
    std::printf("\n");
}

} // namespace

int main(int argc, char** argv)
{
    EMAIL_MIME message;
    if (argc != 3 || message.parse(QFile::decodeName(argv[1])) != 0) {
        std::fprintf(stderr, "usage: %s STORED SENDABLE\n", argv[0]);
        return 2;
    }
    printNames("stored", message);
    // The body parts are rebuilt on the way; their bodies stay in the stored file until they are
    // written, so the two files must differ.
    message.makeHeaderSendable();
    printNames("sendable", message);

    QFile file(QFile::decodeName(argv[2]));
    if (!file.open(QIODevice::WriteOnly) || message.assemble(&file) != 0) {
        std::fprintf(stderr, "cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
