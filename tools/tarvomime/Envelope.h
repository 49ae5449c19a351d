// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Mailbox.h"
#include "utility/EMAIL_Numbers.h"

#include <QList>
#include <string>
#include <vector>

class EMAIL_MIME;

namespace tarvomime::tool {

class Arguments;

/// What the header of a new message says, from the command line.
struct Envelope
{
    std::string from;
    std::vector<std::string> to;
    std::vector<std::string> cc;
    std::vector<std::string> bcc;
    std::vector<std::string> replyTo;
    std::vector<std::string> headers;
    std::string subject;
    std::string messageId;
    std::string inReplyTo;
    bool receipt = false;
    std::string out;
    int charset = CHARSET_UTF_8;
};

// Values that go into the header are refused when they hold line breaks or other control
// characters, which could bring header fields of their own, and addresses when they are none.

/// Adds what every new message may have: --from, --cc, --bcc, --reply-to, --subject, --header,
/// --message-id, --receipt and --out.
void addEnvelope(Arguments& arguments, Envelope& envelope);
/// Adds an option whose values are people.
void addAddresses(Arguments& arguments, const char* name, std::vector<std::string>& values,
                  const char* description);
/// Adds --to.
void addRecipients(Arguments& arguments, Envelope& envelope);
/// Adds --in-reply-to.
void addInReplyTo(Arguments& arguments, Envelope& envelope);

/// Ends the command, as for a missing option, when nobody would get the message.
void requireRecipient(const Envelope& envelope);

/// Refuses control characters in a value for the header: the problem, or an empty text.
std::string headerValueProblem(const std::string& value);

/// The person who writes.
Mailbox senderOf(const Envelope& envelope);
/// The people in the values of an option.
QList<Mailbox> peopleIn(const std::vector<std::string>& values);

/// Fills the header of a new message.
void applyEnvelope(const Envelope& envelope, EMAIL_MIME& message);
/// Fills To.
void applyRecipients(const Envelope& envelope, EMAIL_MIME& message);
/// Adds what an answer or a forwarded message does not get from its original.
void applyAdditions(const Envelope& envelope, EMAIL_MIME& message);

} // namespace tarvomime::tool
