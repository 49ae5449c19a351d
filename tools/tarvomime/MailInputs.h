// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <string>
#include <vector>

namespace tarvomime::tool {

class Arguments;

/// Which messages a command reads, as its user says it.
struct MailInputs
{
    /// Files, folders, Maildirs and mboxes; "-" is standard input.
    std::vector<std::string> paths;
    /// One message of each mbox: by its number, counted from 1, or by a byte of it; 0 and -1 for
    /// all.
    qint64 number = 0;
    qint64 offset = -1;
    /// Of text that does not say its own; empty where the user leaves it open.
    std::string charset;

    bool isSelection() const { return number > 0 || offset >= 0; }
};

/// Adds "FILE...", "--message NUMBER" and "--offset NUMBER".
void addMailInputs(Arguments& arguments, MailInputs& inputs);
/// Adds "FILE" (exactly one) and "--message NUMBER", for the one message of it.
void addMessage(Arguments& arguments, MailInputs& inputs);

} // namespace tarvomime::tool
