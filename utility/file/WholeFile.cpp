// SPDX-License-Identifier: MIT
#include "utility/file/WholeFile.h"

#include "utility/file/RegularFile.h"

#include <new>
#include <sys/mman.h>

namespace tarvomime {

WholeFile::WholeFile(const QString& path)
{
    const RegularFile file(path);
    if (!file.isOpen())
        return;
    mSize = file.size();
    const auto length = static_cast<std::size_t>(mSize);
    if (mSize <= kLongestRead)
        mCopy.reset(new (std::nothrow) char[length]);
    // Without memory for a copy there may still be room for a mapping.
    if (mCopy != nullptr) {
        mData = file.read(0, mCopy.get(), mSize) ? mCopy.get() : nullptr;
        return;
    }
    void* const mapping = mmap(nullptr, length, PROT_READ, MAP_PRIVATE, file.descriptor(), 0);
    if (mapping != MAP_FAILED)
        mData = static_cast<const char*>(mMapping = mapping);
}

WholeFile::~WholeFile()
{
    if (mMapping != nullptr)
        munmap(mMapping, static_cast<std::size_t>(mSize));
}

} // namespace tarvomime
