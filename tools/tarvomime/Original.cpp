// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Original.h"

#include "extra/Reply.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Mail.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_Message.h"

#include <QFile>
#include <QFileInfo>

namespace tarvomime::tool {

Original::Original(const MailInputs& inputs, Session& session)
{
    if (!findPlace(inputs, session))
        return;
    mBytes = bytesAt(mPlace);
    if (mPlace.isInMbox()) {
        mMessage.mMessage->setMessage(QCString::fromBytes(mBytes));
        mMessage.mMessage->parse();
    } else {
        parseStored(*mPlace.file, *mMessage.mMessage);
    }
    mContent = readContent(*mMessage.mMessage);
}

bool Original::findPlace(const MailInputs& inputs, Session& session)
{
    const std::string& path = inputs.paths.front();
    if (QFileInfo(QFile::decodeName(path.c_str())).isDir()) {
        session.complain(path, "is a folder, not a file");
        return false;
    }
    MailSource source(inputs, session);
    MailPlace found;
    MailPlace further;
    if (!source.next(found))
        return false;
    if (!inputs.isSelection() && source.next(further)) {
        session.complain(path, "holds several messages: --message says which");
        return false;
    }
    mPlace = std::move(found);
    return true;
}

bool Original::readText(QString& text, Session& session) const
{
    const Result<QString> read = quotableText(mContent);
    if (read)
        text = *read;
    else
        session.complain(name(), read.reason().toStdString());
    return bool(read);
}

} // namespace tarvomime::tool
