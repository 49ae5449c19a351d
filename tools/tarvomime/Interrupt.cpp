// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Interrupt.h"

namespace tarvomime::tool {

namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void rememberInterrupt(int)
{
    interrupted = 1;
}

} // namespace

InterruptGuard::InterruptGuard()
{
    interrupted = 0;
    struct sigaction action = {};
    // Without SA_RESTART a read that waits for a terminal ends too.
    action.sa_handler = rememberInterrupt;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, &mOldInterrupt);
    sigaction(SIGTERM, &action, &mOldTerminate);
}

InterruptGuard::~InterruptGuard()
{
    sigaction(SIGINT, &mOldInterrupt, nullptr);
    sigaction(SIGTERM, &mOldTerminate, nullptr);
}

bool wasInterrupted()
{
    return interrupted != 0;
}

int stopWhenInterrupted()
{
    return wasInterrupted() ? -1 : 0;
}

} // namespace tarvomime::tool
