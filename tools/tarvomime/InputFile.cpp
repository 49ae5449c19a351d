// SPDX-License-Identifier: MIT
#include "tools/tarvomime/InputFile.h"

#include "tools/tarvomime/Descriptor.h"
#include "tools/tarvomime/StandardInput.h"

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

// Below this, mapping and its page faults cost more than a copy, and threads wait for each other's.
constexpr std::size_t kMostRead = 96 << 10;

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
        load(descriptor.number(), sizes);
    else
        mProblem = std::strerror(errno);
}

void InputFile::load(int descriptor, Sizes sizes)
{
    struct stat status;
    if (fstat(descriptor, &status) != 0) {
        mProblem = std::strerror(errno);
        return;
    }
    mProblem = problemOf(status, sizes);
    if (!mProblem.empty() || status.st_size == 0)
        return;
    const auto size = static_cast<std::size_t>(status.st_size);
    const bool isLoaded = size <= kMostRead ? read(descriptor, size) : map(descriptor, size);
    if (!isLoaded)
        mProblem = std::strerror(errno);
}

// The file may have lost something since its size was asked.
bool InputFile::read(int descriptor, std::size_t size)
{
    mRead = std::make_unique<char[]>(size + 1);
    mData = mRead.get();
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count =
            pread(descriptor, mRead.get() + done, size - done, static_cast<off_t>(done));
        if (count == 0)
            break;
        if (count < 0 && errno != EINTR)
            return false;
        done += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    mSize = static_cast<qint64>(done);
    return true;
}

// Zeros follow the file in its last page. A file that fills that page gets another one.
bool InputFile::map(int descriptor, std::size_t size)
{
    const bool fills = size % static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) == 0;
    void* room =
        fills ? mmap(nullptr, size + 1, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) : nullptr;
    void* start = room == MAP_FAILED ? room
                                     : mmap(room, size, PROT_READ,
                                            MAP_PRIVATE | (fills ? MAP_FIXED : 0), descriptor, 0);
    if (start == MAP_FAILED)
        return false;
    mData = static_cast<const char*>(start);
    mMapped = fills ? size + 1 : size;
    mSize = static_cast<qint64>(size);
    return true;
}

QString InputFile::reopenPath() const
{
    const QString name = QFile::decodeName(mPath.c_str());
    const bool spelt = QFile::encodeName(name) == mPath.c_str();
    return spelt && access(mPath.c_str(), R_OK | W_OK) == 0 ? name : QString();
}

void InputFile::release(qint64 length) const
{
    if (length > 0 && mMapped > 0)
        madvise(const_cast<char*>(mData), static_cast<std::size_t>(length), MADV_DONTNEED);
}

} // namespace tarvomime::tool
