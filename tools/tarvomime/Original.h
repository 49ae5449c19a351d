// SPDX-License-Identifier: MIT
#pragma once

#include "extra/MessageContent.h"
#include "tools/tarvomime/InputFile.h"
#include "utility/EMAIL_MIME.h"

namespace tarvomime::tool {

class Session;

/// The message that is answered or forwarded.
class Original
{
public:
    explicit Original(const std::string& path);

    /// False after a complaint about the file.
    bool isOpen(Session& session) const;
    const EMAIL_Header& header() const { return *mMessage.getHeader(); }
    const MessageContent& content() const { return mContent; }
    const InputFile& file() const { return mFile; }
    /// The text to quote. False after a complaint.
    bool readText(QString& text, Session& session) const;

private:
    InputFile mFile;
    EMAIL_MIME mMessage;
    MessageContent mContent;
};

} // namespace tarvomime::tool
