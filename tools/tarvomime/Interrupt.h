// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

namespace tarvomime::tool {

/// While it lives, Ctrl-C (SIGINT) and SIGTERM no longer kill the process: they set a flag that
/// streaming operations ask for, so that a half-written file can be removed first.
class InterruptGuard
{
public:
    InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;
    ~InterruptGuard();

private:
    struct sigaction mOldInterrupt;
    struct sigaction mOldTerminate;
};

/// Whether one of the two signals came since the guard was set up.
bool wasInterrupted();
/// The same as a progress callback: -1 to stop, 0 to go on.
int stopWhenInterrupted();

} // namespace tarvomime::tool
