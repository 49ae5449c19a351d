// SPDX-License-Identifier: MIT
#include "tools/tarvomime/StandardInput.h"

#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/Session.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <limits>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

/// The count that read() gives, asked again when a signal other than Ctrl-C came between.
ssize_t readBlock(char* block, std::size_t length)
{
    for (;;) {
        const ssize_t count = read(STDIN_FILENO, block, length);
        if (count >= 0 || errno != EINTR || wasInterrupted())
            return count;
    }
}

} // namespace

bool readStandardInput(QByteArray& out, Session& session)
{
    // Qt 5 keeps the length of an array in an int, with room for its own bookkeeping.
    constexpr qint64 kLongest = std::numeric_limits<int>::max() - 64;
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
        if (qint64(out.size()) + count > kLongest) {
            session.complain("standard input", "is too large (2 GiB or more)");
            return false;
        }
        out.append(block.data(), static_cast<int>(count));
    }
}

} // namespace tarvomime::tool
