// SPDX-License-Identifier: MIT
#include "tools/tarvomime/StoredMessage.h"

#include "tools/tarvomime/InputFile.h"
#include "utility/EMAIL_Message.h"

namespace tarvomime::tool {

void parseStored(const InputFile& file, EMAIL_Message& message)
{
    const QString path = file.reopenPath();
    if (!path.isEmpty()) {
        message.parse(file.data(), 0, file.size(), path);
        return;
    }
    message.setMessage(QCString::fromBytes(QByteArray(file.data(), file.size())));
    message.parse();
}

void parseRanges(const InputFile& file, EMAIL_Message& message)
{
    // The path only says "file": the library opens it for reading bodies, which no one asks for.
    message.parse(file.data(), 0, file.size(), QString::fromLatin1("/"));
}

} // namespace tarvomime::tool
