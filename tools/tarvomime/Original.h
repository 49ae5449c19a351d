// SPDX-License-Identifier: MIT
#pragma once

#include "extra/MessageContent.h"
#include "tools/tarvomime/MailSource.h"
#include "utility/EMAIL_MIME.h"

namespace tarvomime::tool {

class Session;

/// The message that is answered or forwarded.
class Original
{
public:
    /// The one message that `inputs` lead to.
    Original(const MailInputs& inputs, Session& session);

    /// False after a complaint.
    bool isOpen() const { return mPlace.file != nullptr; }
    std::string name() const { return mPlace.name(); }
    const EMAIL_Header& header() const { return *mMessage.getHeader(); }
    const MessageContent& content() const { return mContent; }
    /// All of it, as it was before an mbox took it in.
    const QByteArray& bytes() const { return mBytes; }
    /// The text to quote. False after a complaint.
    bool readText(QString& text, Session& session) const;

private:
    bool findPlace(const MailInputs& inputs, Session& session);

    MailPlace mPlace;
    QByteArray mBytes;
    EMAIL_MIME mMessage;
    MessageContent mContent;
};

} // namespace tarvomime::tool
