// SPDX-License-Identifier: MIT
#include "tools/tarvomime/MailInputs.h"

#include "tools/tarvomime/Arguments.h"

namespace tarvomime::tool {

void addMailInputs(Arguments& arguments, MailInputs& inputs)
{
    arguments.values("FILE", inputs.paths,
                     "Message files, folders, Maildirs and mboxes; \"-\" is standard input");
    arguments.number("--message", inputs.number, 1, "Only this message of an mbox, counted from 1");
    arguments.number("--offset", inputs.offset, 0,
                     "Only the message of an mbox that this byte belongs to");
    arguments.exclude("--message", "--offset");
}

} // namespace tarvomime::tool
