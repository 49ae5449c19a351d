// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>

/// Something to work on, an operation on it, and the question whether it still stands. It is freed
/// with the object.
class AllocationTrial
{
public:
    virtual ~AllocationTrial() = default;
    virtual void act() = 0;
    /// Reads and assembles what the operation has left.
    virtual bool isUsable() = 0;
};

using TrialMaker = std::function<std::unique_ptr<AllocationTrial>()>;

/// Runs the operation with its first allocation failing, then with its second, and so on to its
/// last, each time on a new object in a process of its own. Whatever happens, the object can be
/// used and freed afterwards, nothing leaks, and freeing takes no memory; or the program stops at
/// one of `assertions`.
void expectEveryAllocationMayFail(const TrialMaker& make, const std::set<std::string>& assertions);

/// Ends a trial as failed, since a text was lost.
[[noreturn]] void endTrialWithTextLost();
