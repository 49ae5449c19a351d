// SPDX-License-Identifier: MIT
#include "tools/tarvomime/InputFile.h"

#include "tools/tarvomime/Descriptor.h"
#include "tools/tarvomime/StandardInput.h"

#include <QFile>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

std::string problemOf(const struct stat& status, Sizes sizes)
{
    if (S_ISDIR(status.st_mode))
        return "is a folder, not a file";
    if (!S_ISREG(status.st_mode))
        return "is not a regular file";
    if (status.st_size == 0 && sizes != Sizes::OrEmpty)
        return "is empty";
    constexpr qint64 kMostAddresses = std::numeric_limits<std::ptrdiff_t>::max();
    if (status.st_size >= (sizes == Sizes::OrTooLong ? kMostAddresses : kTooLong))
        return kTooLongProblem;
    return {};
}

} // namespace

InputFile::InputFile(const std::string& path, Sizes sizes)
    : mPath(path), mName(path == "-" ? "standard input" : path)
{
    open(sizes);
}

InputFile::~InputFile()
{
    if (mMapped > 0)
        munmap(const_cast<char*>(mData), mMapped);
}

void InputFile::open(Sizes sizes)
{
    const int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const Descriptor descriptor(mPath == "-" ? openStandardInput() : ::open(mPath.c_str(), flags));
    if (descriptor.isOpen())
        map(descriptor.number(), sizes);
    else
        mProblem = std::strerror(errno);
}

void InputFile::map(int descriptor, Sizes sizes)
{
    struct stat status;
    if (fstat(descriptor, &status) != 0) {
        mProblem = std::strerror(errno);
        return;
    }
    mProblem = problemOf(status, sizes);
    if (!mProblem.empty() || status.st_size == 0)
        return;
    // Zeros follow the file in its last page. A file that fills that page gets another one.
    const auto size = static_cast<std::size_t>(status.st_size);
    const bool fills = size % static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) == 0;
    void* room =
        fills ? mmap(nullptr, size + 1, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) : nullptr;
    void* start = room == MAP_FAILED ? room
                                     : mmap(room, size, PROT_READ,
                                            MAP_PRIVATE | (fills ? MAP_FIXED : 0), descriptor, 0);
    if (start == MAP_FAILED) {
        mProblem = std::strerror(errno);
        return;
    }
    mData = static_cast<const char*>(start);
    mSize = status.st_size;
    mMapped = fills ? size + 1 : size;
}

QString InputFile::reopenPath() const
{
    const QString name = QFile::decodeName(mPath.c_str());
    const bool spelt = QFile::encodeName(name) == mPath.c_str();
    return spelt && access(mPath.c_str(), R_OK | W_OK) == 0 ? name : QString();
}

void InputFile::release(qint64 length) const
{
    if (length > 0)
        madvise(const_cast<char*>(mData), static_cast<std::size_t>(length), MADV_DONTNEED);
}

} // namespace tarvomime::tool
