// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Pager.h"

#include "tools/tarvomime/Descriptor.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/Terminal.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sstream>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

bool isInstalled(const std::string& program)
{
    const char* path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    std::string folder;
    while (std::getline(folders, folder, ':')) {
        if (access(folder.append("/").append(program).c_str(), X_OK) == 0)
            return true;
    }
    return false;
}

// Empty where the user wants none.
const char* pagerCommand()
{
    const char* pager = std::getenv("PAGER");
    if (pager == nullptr)
        return isInstalled("less") ? "less" : "";
    return std::string_view(pager) == "cat" ? "" : pager;
}

[[noreturn]] void becomePager(const char* command, int input)
{
    dup2(input, STDIN_FILENO);
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGPIPE, SIG_DFL);
    // Colours as they are, nothing to leave for a text that fits, and the text stays on the screen.
    setenv("LESS", "FRX", 0);
    execl("/bin/sh", "sh", "-c", command, nullptr);
    _exit(127);
}

} // namespace

Pager::Pager(Session& session) : mSession(session)
{
    const char* command = pagerCommand();
    if (isOutputTerminal() && *command != '\0')
        start(command);
}

void Pager::start(const char* command)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    const Descriptor reading(ends[0]);
    const Descriptor writing(ends[1]);
    mTerminal = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
    mProcess = mTerminal < 0 ? -1 : fork();
    if (mProcess == 0)
        becomePager(command, reading.number());
    if (mProcess < 0)
        return;
    dup2(writing.number(), STDOUT_FILENO);
    // Ctrl-C is the pager's: it ends a search there, not the text.
    std::signal(SIGINT, SIG_IGN);
}

Pager::~Pager()
{
    const Descriptor terminal(mTerminal);
    if (mProcess < 0)
        return;
    mSession.endOutput();
    dup2(terminal.number(), STDOUT_FILENO);
    while (waitpid(mProcess, nullptr, 0) < 0 && errno == EINTR) {
    }
    std::signal(SIGINT, SIG_DFL);
}

} // namespace tarvomime::tool
