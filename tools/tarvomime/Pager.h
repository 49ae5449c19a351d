// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

namespace tarvomime::tool {

class Session;

/// While it lives, what goes to a terminal goes through the user's pager ($PAGER, or "less", which
/// shows a short text and ends at once). Elsewhere, and where no pager starts, nothing changes.
class Pager
{
public:
    explicit Pager(Session& session);
    Pager(const Pager&) = delete;
    Pager& operator=(const Pager&) = delete;
    /// Waits until the user has left the pager.
    ~Pager();

private:
    void start(const char* command);

    Session& mSession;
    pid_t mProcess = -1;
    int mTerminal = -1;
};

} // namespace tarvomime::tool
