// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Original.h"

#include "extra/Reply.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_Message.h"

namespace tarvomime::tool {

Original::Original(const std::string& path) : mFile(path)
{
    if (!mFile.isOpen())
        return;
    parseStored(mFile, *mMessage.mMessage);
    mContent = readContent(*mMessage.mMessage);
}

bool Original::isOpen(Session& session) const
{
    if (!mFile.isOpen())
        session.complain(mFile.path(), mFile.problem());
    return mFile.isOpen();
}

bool Original::readText(QString& text, Session& session) const
{
    const Result<QString> read = quotableText(mContent);
    if (read)
        text = *read;
    else
        session.complain(mFile.path(), read.reason().toStdString());
    return bool(read);
}

} // namespace tarvomime::tool
