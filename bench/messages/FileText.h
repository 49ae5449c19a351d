// SPDX-License-Identifier: MIT
#pragma once

#include <fcntl.h>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace bench {

/// The bytes of a file, mapped, for libraries that read memory only.
class FileText
{
public:
    explicit FileText(const char* path)
    {
        const int file = open(path, O_RDONLY);
        struct stat status = {};
        if (file >= 0 && fstat(file, &status) == 0)
            mSize = static_cast<std::size_t>(status.st_size);
        void* const data =
            mSize > 0 ? mmap(nullptr, mSize, PROT_READ, MAP_PRIVATE, file, 0) : MAP_FAILED;
        mData = data == MAP_FAILED ? nullptr : static_cast<const char*>(data);
        close(file);
    }
    ~FileText()
    {
        if (mData != nullptr)
            munmap(const_cast<char*>(mData), mSize);
    }
    FileText(const FileText&) = delete;
    FileText& operator=(const FileText&) = delete;

    std::string_view view() const
    {
        return mData == nullptr ? std::string_view() : std::string_view(mData, mSize);
    }

private:
    const char* mData = nullptr;
    std::size_t mSize = 0;
};

} // namespace bench
