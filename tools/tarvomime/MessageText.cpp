// SPDX-License-Identifier: MIT
#include "tools/tarvomime/MessageText.h"

#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"

namespace tarvomime::tool {

bool readMessageText(EMAIL_MIME& message, int charset, QString& text)
{
    EMAIL_ContentType* type = message.getHeader()->contentType();
    if (!type->hasCharset())
        type->setCharset(charset);
    return message.getBody(text, charset) == 0;
}

} // namespace tarvomime::tool
