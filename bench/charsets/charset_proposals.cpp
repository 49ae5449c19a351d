// SPDX-License-Identifier: MIT
// charset_proposals: for each line of base64 on standard input, prints the charset that is proposed
// for its bytes and, in base64 too, the text that they are read as, in UTF-8.
#include "extra/CharsetText.h"

#include <QFile>
#include <cstdio>

int main()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return 1;
    while (!input.atEnd()) {
        const QByteArray bytes = QByteArray::fromBase64(input.readLine().trimmed());
        const tarvomime::ReadText read = tarvomime::readText(bytes, QByteArray());
        std::printf("%s %s\n", read.charset.name.constData(),
                    read.text.toUtf8().toBase64().constData());
    }
    return 0;
}
