// SPDX-License-Identifier: MIT
#include "tools/tarvomime/StandardInput.h"

#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/Session.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

// The count that read() gives, asked again when a signal other than Ctrl-C came between.
ssize_t readBlock(char* block, std::size_t length)
{
    for (;;) {
        const ssize_t count = read(STDIN_FILENO, block, length);
        if (count >= 0 || errno != EINTR || wasInterrupted())
            return count;
    }
}

bool writeAll(int descriptor, const char* block, std::size_t length)
{
    while (length > 0) {
        const ssize_t count = write(descriptor, block, length);
        if (count < 0 && errno != EINTR)
            return false;
        const auto written = static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        block += written;
        length -= written;
    }
    return true;
}

bool copyStandardInput(int target)
{
    std::array<char, 65536> block;
    qint64 copied = 0;
    ssize_t count = 0;
    // What is too large to be read, and no mbox, is not copied to its end.
    bool isMbox = false;
    while ((isMbox || copied < kTooLong) && (count = readBlock(block.data(), block.size())) > 0) {
        const std::string_view start(block.data(), static_cast<std::size_t>(count));
        isMbox = copied == 0 ? start.substr(0, 5) == "From " : isMbox;
        if (!writeAll(target, block.data(), start.size()))
            return false;
        copied += count;
    }
    return count >= 0;
}

} // namespace

int openStandardInput()
{
    struct stat status;
    if (fstat(STDIN_FILENO, &status) != 0)
        return -1;
    const bool readable = S_ISREG(status.st_mode) && lseek(STDIN_FILENO, 0, SEEK_CUR) == 0;
    if (readable || S_ISDIR(status.st_mode))
        return fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> copy(std::tmpfile(), std::fclose);
    if (!copy || !copyStandardInput(fileno(copy.get())))
        return -1;
    return fcntl(fileno(copy.get()), F_DUPFD_CLOEXEC, 0);
}

bool readStandardInput(QByteArray& out, Session& session)
{
    const InterruptGuard guard;
    std::array<char, 65536> block;
    for (;;) {
        const ssize_t count = readBlock(block.data(), block.size());
        if (wasInterrupted()) {
            session.setInterrupted();
            return false;
        }
        if (count < 0) {
            session.complain("standard input", std::strerror(errno));
            return false;
        }
        if (count == 0)
            return true;
        if (qint64(out.size()) + count > kTooLong) {
            session.complain("standard input", kTooLongProblem);
            return false;
        }
        out.append(block.data(), static_cast<int>(count));
    }
}

} // namespace tarvomime::tool
