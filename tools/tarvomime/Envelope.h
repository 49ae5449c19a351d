// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

class EMAIL_MIME;

namespace CLI {
class App;
}

namespace tarvomime::tool {

class Session;

/// What every new message has: addresses, subject and text, from the command line.
struct Envelope
{
    std::string from;
    std::vector<std::string> to;
    std::vector<std::string> cc;
    std::string subject;
    std::string text;
    bool receipt = false;
    std::string out;
    int charset;
};

/// Adds the options. Values that go into the header are refused when they hold line breaks or other
/// control characters: they could bring header fields of their own.
void addEnvelope(CLI::App& command, Envelope& envelope);

/// Refuses control characters in a value for the header, as a check for CLI11: the problem, or an
/// empty text.
std::string headerValueProblem(const std::string& value);

/// Fills the header of a new message, whose type is set already.
void applyEnvelope(const Envelope& envelope, EMAIL_MIME& message);

/// The text with CR LF at its line ends; "-" stands for standard input. False after a complaint.
bool readText(const Envelope& envelope, std::string& text, Session& session);

} // namespace tarvomime::tool
