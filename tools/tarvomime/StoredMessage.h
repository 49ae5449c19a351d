// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class EMAIL_Message;

namespace tarvomime::tool {

class InputFile;

/// All bytes of `file`, which must outlive them: they are those of the mapping where that is
/// possible.
QByteArray bytesOf(const InputFile& file);

/// Parses `file` into `message`, which must not outlive it. Bodies stay ranges of the file where
/// the library can open it again to read them; otherwise (a read-only file, a name that Qt cannot
/// spell) the message is parsed in memory.
void parseStored(const InputFile& file, EMAIL_Message& message);

/// Parses `file` in memory: every text of `message`, which must not outlive it, is a slice of the
/// mapping.
void parseInMemory(const InputFile& file, EMAIL_Message& message);

} // namespace tarvomime::tool
