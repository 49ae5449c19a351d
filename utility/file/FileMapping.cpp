// SPDX-License-Identifier: MIT
#include "utility/file/FileMapping.h"

#include <QByteArray>
#include <fcntl.h>
#include <limits>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvomime {

namespace {

// What fopen(path, "r+") opens, but for two things: opening a FIFO or a device must not wait for
// somebody at its other end, and no child process inherits the descriptor.
std::FILE* openForUpdate(const char* path)
{
    const int descriptor = open(path, O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    std::FILE* stream = fdopen(descriptor, "r+");
    if (stream == nullptr)
        close(descriptor);
    return stream;
}

// The length of a regular file that an int can hold; 0 for everything else. Only a regular file's
// size tells what can be mapped.
int mappableSize(std::FILE* stream)
{
    struct stat status;
    if (fstat(fileno(stream), &status) != 0 || !S_ISREG(status.st_mode))
        return 0;
    return status.st_size <= std::numeric_limits<int>::max() ? static_cast<int>(status.st_size) : 0;
}

} // namespace

int mapFile(const QString& path, std::FILE*& stream, char*& data, int& size)
{
    std::FILE* const opened = openForUpdate(path.toLocal8Bit().constData());
    if (opened == nullptr)
        return -1;
    const int length = mappableSize(opened);
    // A mapping of 0 bytes is refused by the system.
    void* const mapping =
        mmap(nullptr, static_cast<std::size_t>(length), PROT_READ, MAP_PRIVATE, fileno(opened), 0);
    if (mapping == MAP_FAILED) {
        std::fclose(opened);
        return -1;
    }
    stream = opened;
    data = static_cast<char*>(mapping);
    size = length;
    return 0;
}

} // namespace tarvomime
