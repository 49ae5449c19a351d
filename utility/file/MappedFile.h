// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdio>

namespace tarvomime {

/// Maps a whole file read-only and private; see `EMAIL_Util::openBuffer`. A file that is refused
/// leaves the arguments as they were.
int mapFile(const QString& path, std::FILE*& stream, char*& data, int& size);

/// A whole file mapped for reading, unmapped and closed when it goes out of scope: for parsing,
/// which looks at all of it. A file that is cut short meanwhile ends the program when its bytes are
/// looked at (SIGBUS); whoever reads stored bytes only takes `BodyBytes`.
class MappedFile
{
public:
    explicit MappedFile(const QString& path);
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile();

    bool isOpen() const { return mStream != nullptr; }
    const char* data() const { return mData; }
    int size() const { return mSize; }

private:
    std::FILE* mStream = nullptr;
    char* mData = nullptr;
    int mSize = 0;
};

} // namespace tarvomime
