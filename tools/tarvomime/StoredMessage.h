// SPDX-License-Identifier: MIT
#pragma once

class EMAIL_Message;

namespace tarvomime::tool {

class InputFile;

/// Parses `file` into `message`. Bodies stay in the file, as ranges of it, where the library can
/// open it again to read them; otherwise (a read-only file, a name that Qt cannot spell) the
/// message is taken into memory.
void parseStored(const InputFile& file, EMAIL_Message& message);

/// Parses `file` without any way to read bodies through the library: all stay ranges of the file.
/// For commands that look at structure only, or read the ranges themselves.
void parseRanges(const InputFile& file, EMAIL_Message& message);

} // namespace tarvomime::tool
