// SPDX-License-Identifier: MIT
#include "tools/tarvomime/StoredMessage.h"

#include "tools/tarvomime/InputFile.h"
#include "utility/EMAIL_Message.h"

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
    // The NUL that the library may read behind a byte array follows the mapped file too.
    return QByteArray::fromRawData(file.data(), file.size());
}

void parseInMemory(const InputFile& file, EMAIL_Message& message)
{
    message.setMessage(QCString::fromBytes(bytesOf(file)));
    message.parse();
}

} // namespace tarvomime::tool
