// SPDX-License-Identifier: MIT
#include "utility/file/RegularFile.h"

#include <QByteArray>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tarvomime {

namespace {

constexpr int kRefused = -1;

// What fopen(path, "r+") opens, or "r", but for two things: opening a FIFO or a device must not
// wait for somebody at its other end, and no child process inherits the descriptor.
int openFile(const QString& path, FileAccess access)
{
    const int mode = access == FileAccess::Read ? O_RDONLY : O_RDWR;
    const int flags = mode | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    if (!isFileName(path))
        return -1;
    const QByteArray name = path.toLocal8Bit();
    int descriptor = -1;
    do
        descriptor = open(name.constData(), flags);
    while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

// The length of a regular file that an int can hold.
int regularSize(int descriptor)
{
    struct stat status;
    if (descriptor < 0 || fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return kRefused;
    return status.st_size <= std::numeric_limits<int>::max() ? static_cast<int>(status.st_size)
                                                             : kRefused;
}

} // namespace

bool isFileName(const QString& path)
{
    return !path.isEmpty() && !path.contains(QChar(0));
}

RegularFile::RegularFile(const QString& path, FileAccess access)
    : mDescriptor(openFile(path, access)), mSize(regularSize(mDescriptor))
{
    const int least = access == FileAccess::Read ? 0 : 1;
    if (mSize >= least)
        return;
    mSize = 0;
    if (isOpen())
        close(release());
}

RegularFile::~RegularFile()
{
    if (isOpen())
        close(mDescriptor);
}

bool RegularFile::isOpen() const
{
    return mDescriptor >= 0;
}

int RegularFile::size() const
{
    return mSize;
}

int RegularFile::descriptor() const
{
    return mDescriptor;
}

bool RegularFile::holds(int offset, int length) const
{
    return isOpen() && offset >= 0 && length >= 0 && offset <= mSize - length;
}

bool RegularFile::read(int offset, char* out, int count) const
{
    while (count > 0) {
        const ssize_t got = pread(mDescriptor, out, static_cast<std::size_t>(count), offset);
        if (got < 0 && errno == EINTR)
            continue;
        // 0: the file ends here by now.
        if (got <= 0)
            return false;
        out += got;
        offset += static_cast<int>(got);
        count -= static_cast<int>(got);
    }
    return true;
}

int RegularFile::release()
{
    return std::exchange(mDescriptor, -1);
}

} // namespace tarvomime
