// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Terminal.h"

#include <cstdlib>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

constexpr int kUsualWidth = 80;

} // namespace

bool isOutputTerminal()
{
    return isatty(STDOUT_FILENO) == 1;
}

int outputWidth()
{
    if (!isOutputTerminal())
        return 0;
    winsize size = {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
    const char* columns = std::getenv("COLUMNS");
    const int width = columns == nullptr ? 0 : std::atoi(columns);
    return width > 0 ? width : kUsualWidth;
}

} // namespace tarvomime::tool
