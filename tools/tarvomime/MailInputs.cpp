// SPDX-License-Identifier: MIT
#include "tools/tarvomime/MailInputs.h"

#include "tools/tarvomime/Arguments.h"

namespace tarvomime::tool {

namespace {

void addNumber(Arguments& arguments, MailInputs& inputs)
{
    arguments.number("--message", inputs.number, 1, "Only this message of an mbox, counted from 1");
}

} // namespace

void addMailInputs(Arguments& arguments, MailInputs& inputs)
{
    arguments.values("FILE", inputs.paths,
                     "Message files, folders, Maildirs and mboxes; \"-\" is standard input");
    addNumber(arguments, inputs);
    arguments.number("--offset", inputs.offset, 0,
                     "Only the message of an mbox that this byte belongs to");
    arguments.exclude("--message", "--offset");
}

void addMessage(Arguments& arguments, MailInputs& inputs)
{
    arguments.value("FILE", inputs.paths, "The message, or the mbox that holds it");
    addNumber(arguments, inputs);
}

} // namespace tarvomime::tool
