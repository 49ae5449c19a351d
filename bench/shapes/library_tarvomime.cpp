// SPDX-License-Identifier: MIT
#include "bench/shapes/Library.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

int parseMessage(const std::string& text)
{
    EMAIL_Message message(QCString(text.data(), static_cast<int>(text.size())), nullptr);
    message.parse();
    const bool isAddressed = message.mHeader->getTo() != nullptr;
    const bool isTyped = message.mHeader->getContentType() != nullptr;
    return int(isAddressed) + int(isTyped);
}
