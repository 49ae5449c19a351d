// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Process.h"

#include <cerrno>
#include <clocale>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

void refuseWhenClosed(int descriptor, int openMode)
{
    // open() hands out the lowest free number, which is this one: lower ones are filled already.
    if (fcntl(descriptor, F_GETFD) < 0 && errno == EBADF)
        (void)open("/dev/null", openMode);
}

} // namespace

void prepareProcess()
{
    refuseWhenClosed(STDIN_FILENO, O_WRONLY);
    refuseWhenClosed(STDOUT_FILENO, O_RDONLY);
    refuseWhenClosed(STDERR_FILENO, O_RDWR);
    std::signal(SIGPIPE, SIG_IGN);
}

void adoptLocale()
{
    std::setlocale(LC_CTYPE, "");
}

} // namespace tarvomime::tool
