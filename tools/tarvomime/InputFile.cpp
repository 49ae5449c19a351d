// SPDX-License-Identifier: MIT
#include "tools/tarvomime/InputFile.h"

#include "tools/tarvomime/Descriptor.h"

#include <QFile>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

std::string problemOf(const struct stat& status, EmptyFile empty)
{
    if (S_ISDIR(status.st_mode))
        return "is a folder, not a file";
    if (!S_ISREG(status.st_mode))
        return "is not a regular file";
    if (status.st_size == 0 && empty == EmptyFile::Refused)
        return "is empty";
    if (status.st_size > std::numeric_limits<int>::max())
        return "is too large (2 GiB or more)";
    return {};
}

} // namespace

InputFile::InputFile(const std::string& path, EmptyFile empty) : mPath(path)
{
    map(empty);
}

InputFile::~InputFile()
{
    if (mSize > 0)
        munmap(const_cast<char*>(mData), static_cast<std::size_t>(mSize));
}

void InputFile::map(EmptyFile empty)
{
    const Descriptor descriptor(open(mPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status;
    if (!descriptor.isOpen() || fstat(descriptor.number(), &status) != 0) {
        mProblem = std::strerror(errno);
        return;
    }
    mProblem = problemOf(status, empty);
    if (!mProblem.empty() || status.st_size == 0)
        return;
    const auto size = static_cast<std::size_t>(status.st_size);
    void* start = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor.number(), 0);
    if (start == MAP_FAILED) {
        mProblem = std::strerror(errno);
        return;
    }
    mData = static_cast<const char*>(start);
    mSize = static_cast<int>(size);
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
