// SPDX-License-Identifier: MIT
#include "bench/shapes/Library.h"

#include <KMime/Message>
#include <kmime/kmime_util.h>

int parseMessage(const std::string& text)
{
    KMime::Message message;
    const QByteArray bytes(text.data(), static_cast<int>(text.size()));
    message.setContent(KMime::CRLFtoLF(bytes));
    message.parse();
    const auto* to = message.to(false);
    const auto* type = message.contentType(false);
    return int(to != nullptr && !to->mailboxes().isEmpty()) + int(type != nullptr);
}
