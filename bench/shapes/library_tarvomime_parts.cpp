// SPDX-License-Identifier: MIT
// The same library asked for more: the date, and every part by its number.
#include "bench/shapes/Library.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

int parseMessage(const std::string& text)
{
    const EMAIL_MIME message(QByteArray(text.data(), static_cast<int>(text.size())));
    const EMAIL_Header* header = message.getHeader();
    const bool isAddressed = header->getTo() != nullptr;
    const bool isTyped = header->getContentType() != nullptr;
    const bool isDated = header->getDate() != nullptr;
    int parts = 0;
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        EMAIL_MultiPart part;
        parts += int(message.getMultiPart(i, part));
    }
    return int(isAddressed) + int(isTyped) + int(isDated) + parts;
}
