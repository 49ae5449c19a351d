// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdio>

namespace tarvomime {

/// A whole file mapped for reading, unmapped and closed when it goes out of scope.
class MappedFile
{
public:
    explicit MappedFile(const QString& path);
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile();

    bool isOpen() const { return mStream != nullptr; }
    /// Whether the file is open and `length` bytes at `offset` lie inside it. A stored range can
    /// lie outside: the file may have been cut short since.
    bool holds(int offset, int length) const;
    const char* data() const { return mData; }
    int size() const { return mSize; }

private:
    FILE* mStream = nullptr;
    char* mData = nullptr;
    int mSize = 0;
};

} // namespace tarvomime
