// SPDX-License-Identifier: MIT
#pragma once

#include "extra/NewBody.h"

#include <string>
#include <vector>

namespace tarvomime::tool {

class Arguments;
class Session;

/// What the body of a new message holds, from the command line.
struct BodyOptions
{
    std::string text;
    std::string html;
    std::vector<std::string> inlineFiles;
    std::vector<std::string> attachments;
};

/// Adds --text.
void addTextOption(Arguments& arguments, BodyOptions& options);
/// Adds --html and --inline.
void addHtmlOptions(Arguments& arguments, BodyOptions& options);
/// Adds --attach.
void addAttachOption(Arguments& arguments, BodyOptions& options);

/// Reads the text that --text gives, "-" from standard input, with "\n" at its line ends. False
/// after a complaint.
bool readTextOption(const BodyOptions& options, QString& text, Session& session);

/// Adds what the options name to `body`. Attachments stay in their files. False after a complaint.
bool readBody(const BodyOptions& options, NewBody& body, Session& session);

/// Roughly how many bytes it takes to write, for a progress bar.
qint64 expectedSize(const NewBody& body);

} // namespace tarvomime::tool
