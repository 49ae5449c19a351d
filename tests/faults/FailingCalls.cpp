// SPDX-License-Identifier: MIT
#include "tests/faults/FailingCalls.h"

#include <dlfcn.h>

namespace {

using Arm = void (*)(SystemCall, Failure, int);
using Count = int (*)();

template <class Function>
Function preloaded(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name));
}

} // namespace

FailingCalls::FailingCalls(SystemCall call, Failure failure, int nth) : mNth(nth)
{
    if (const auto arm = preloaded<Arm>("armFailingCalls"))
        arm(call, failure, nth);
}

FailingCalls::~FailingCalls()
{
    if (const auto arm = preloaded<Arm>("armFailingCalls"))
        arm(SystemCall::None, Failure::Error, 0);
}

bool FailingCalls::reached() const
{
    const auto count = preloaded<Count>("countFailingCalls");
    return count != nullptr && count() >= mNth;
}

bool FailingCalls::arePossible()
{
    return preloaded<Arm>("armFailingCalls") != nullptr;
}
