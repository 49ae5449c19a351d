// SPDX-License-Identifier: MIT
#pragma once

#include "bench/messages/Subjects.h"

#include <string>
#include <vector>

/// The library under measurement; each program links one implementation.
namespace bench {

/// What every library must have read alike.
struct Findings
{
    /// Leaves: parts that are neither multipart nor an enclosed message.
    int parts = 0;
    /// The date in seconds since the epoch.
    long long date = 0;
    /// Length of the decoded subject, which is ASCII.
    std::size_t subjectLength = 0;
    /// Parts that have a name.
    int names = 0;

    bool operator==(const Findings&) const = default;
};

enum class Job { Parse, ParseInPlace, ParseFile, Save, Build, Decode, Encode };
/// What a library cannot do is left out.
bool canDo(Job job);

/// Parses the message, reads From, To, Subject, Date, the Content-Type and the name of every part,
/// decodes words, and frees all of it.
Findings parseAndRead(const std::string& text);
/// The same out of the caller's bytes, where a library otherwise copies them first.
Findings parseInPlace(const std::string& text);
/// The same from a file.
Findings parseFile(const std::string& path);
/// Writes the decoded bytes of the second part of the message in `path` to the file `to`.
bool saveAttachment(const std::string& path, const std::string& to);
/// The text of a message with these attachments, in base64; its length.
std::size_t buildMessage(const std::vector<std::string>& attachments);

/// The decoded text in UTF-8; the empty text when only the time is asked for.
std::string decodeSubject(const std::string& wire, bool isShown);
/// A text on its way out, in the form that the library keeps texts in.
struct LibraryText;
LibraryText* newLibraryText(const std::string& utf8);
void deleteLibraryText(LibraryText* text);
/// The wire form in the language's charset; the empty text when only the time is asked for.
std::string encodeSubject(const LibraryText& text, Language language, bool isShown);

} // namespace bench
