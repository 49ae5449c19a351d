// SPDX-License-Identifier: MIT
#include "bench/shapes/Library.h"

#include <vmime/platforms/posix/posixHandler.hpp>
#include <vmime/vmime.hpp>

int parseMessage(const std::string& text)
{
    static const bool isReady =
        (vmime::platform::setHandler<vmime::platforms::posix::posixHandler>(), true);
    auto message = vmime::make_shared<vmime::message>();
    message->parse(text);
    const auto header = message->getHeader();
    return int(isReady) + int(header->hasField("To") && header->To()->getValue() != nullptr) +
           int(header->hasField("Content-Type") && header->ContentType()->getValue() != nullptr);
}
