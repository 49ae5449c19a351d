// SPDX-License-Identifier: MIT
#include "utility/codec/MappedFile.h"

#include "utility/EMAIL_Util.h"

#include <sys/mman.h>

namespace tarvomime {

MappedFile::MappedFile(const QString& path)
{
    if (EMAIL_Util::openBuffer(path, mStream, mData, mSize) != 0)
        mStream = nullptr;
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
