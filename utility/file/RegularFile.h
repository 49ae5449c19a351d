// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarvomime {

/// Whether a file can have such a name. Qt prints a warning about one that has none, and the system
/// ends a name at its first NUL and opens another file.
bool isFileName(const QString& path);

/// What a file is opened for. Stored bodies are asked for as files that may be written and that
/// hold something, though they are only read; a file that an application names just to be read may
/// be empty, and belong to somebody else.
enum class FileAccess { ReadAndWrite, Read };

/// A regular file of 1 byte to 2 GiB - 1, or of none where it is only to be read, open and closed
/// when it goes out of scope. Reading does not move a position: two readers of one file do not
/// meet.
class RegularFile
{
public:
    /// No file.
    RegularFile() = default;
    /// Opens what the local 8-bit form of `path` names; see `EMAIL_Util::openBuffer` for what is
    /// refused.
    explicit RegularFile(const QString& path, FileAccess access = FileAccess::ReadAndWrite);
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;
    ~RegularFile();

    bool isOpen() const;
    /// Its length when it was opened.
    int size() const;
    int descriptor() const;
    /// Whether `length` bytes at `offset` lay inside the file when it was opened. A stored range
    /// can lie outside: the file may have been cut short since.
    bool holds(int offset, int length) const;
    /// Reads `count` bytes at `offset` to `out`; false when the file does not have them all now.
    bool read(int offset, char* out, int count) const;
    /// The descriptor, which is the caller's from now on.
    int release();

private:
    int mDescriptor = -1;
    int mSize = 0;
};

} // namespace tarvomime
