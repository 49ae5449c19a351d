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
    const auto length = static_cast<std::size_t>(file.size());
    if (file.size() <= kLongestRead)
        mCopy.reset(new (std::nothrow) char[length]);
    // Without memory for a copy there may still be room for a mapping.
    if (mCopy != nullptr) {
        if (file.read(0, mCopy.get(), file.size()))
            mView = {mCopy.get(), length};
        return;
    }
    void* const mapping = mmap(nullptr, length, PROT_READ, MAP_PRIVATE, file.descriptor(), 0);
    if (mapping == MAP_FAILED)
        return;
    mMapping = mapping;
    mView = {static_cast<const char*>(mapping), length};
}

WholeFile::~WholeFile()
{
    if (mMapping != nullptr)
        munmap(mMapping, mView.size());
}

std::string_view WholeFile::view() const
{
    return mView;
}

} // namespace tarvomime
