// SPDX-License-Identifier: MIT
#include "utility/file/MappedFile.h"

#include "utility/file/FileMapping.h"

#include <sys/mman.h>

namespace tarvomime {

MappedFile::MappedFile(const QString& path)
{
    mapFile(path, mStream, mData, mSize);
}

MappedFile::~MappedFile()
{
    if (!isOpen())
        return;
    munmap(mData, static_cast<std::size_t>(mSize));
    std::fclose(mStream);
}

bool MappedFile::holds(int offset, int length) const
{
    return isOpen() && offset >= 0 && length >= 0 && offset <= mSize - length;
}

} // namespace tarvomime
