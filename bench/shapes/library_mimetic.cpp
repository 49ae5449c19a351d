// SPDX-License-Identifier: MIT
#include "bench/shapes/Library.h"

#include <mimetic/mimetic.h>

int parseMessage(const std::string& text)
{
    mimetic::MimeEntity message(text.begin(), text.end());
    return int(!message.header().to().empty()) +
           int(!message.header().contentType().type().empty());
}
