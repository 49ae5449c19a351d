// SPDX-License-Identifier: MIT
#include "tools/tarvomime/StoredMessage.h"

#include "tools/tarvomime/InputFile.h"
#include "utility/EMAIL_Message.h"

#include <unistd.h>

namespace tarvomime::tool {

void parseStored(const InputFile& file, EMAIL_Message& message)
{
    const QString path = file.reopenPath();
    if (path.isEmpty())
        parseInMemory(file, message);
    else
        message.parse(file.data(), 0, file.size(), path);
}

QByteArray bytesOf(const InputFile& file)
{
    // The library may read the NUL that ends a byte array. Behind the mapping it is there unless
    // the file fills its last page.
    const bool terminated = file.size() % sysconf(_SC_PAGESIZE) != 0;
    return terminated ? QByteArray::fromRawData(file.data(), file.size())
                      : QByteArray(file.data(), file.size());
}

void parseInMemory(const InputFile& file, EMAIL_Message& message)
{
    message.setMessage(QCString::fromBytes(bytesOf(file)));
    message.parse();
}

void parseRanges(const InputFile& file, EMAIL_Message& message)
{
    parseRange(file, 0, file.size(), message);
}

void parseRange(const InputFile& file, int offset, int length, EMAIL_Message& message)
{
    // The path only says "file": the library opens it for reading bodies, which no one asks for.
    message.parse(file.data(), offset, length, QString::fromLatin1("/"));
}

} // namespace tarvomime::tool
