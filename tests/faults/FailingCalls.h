// SPDX-License-Identifier: MIT
#pragma once

/// The system calls that the preloaded library can let fail, each standing for all its forms.
enum class SystemCall { None, Open, Stat, Read, Write, Map };

enum class Failure {
    /// EIO.
    Error,
    /// EINTR: to be tried again.
    Interrupted,
    /// Half of the bytes that were asked for, for reads and writes.
    Short,
    /// Nothing, as at a file's end, for reads.
    Nothing,
};

/// Lets the calls of one kind fail from the `nth` on (1 is the next one), `Interrupted` and `Short`
/// just that one, for as long as this lives. Counts them in any case.
class FailingCalls
{
public:
    FailingCalls(SystemCall call, Failure failure, int nth);
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;
    ~FailingCalls();

    /// Whether a call was reached that had to fail.
    bool reached() const;

    /// Whether the library is preloaded; without it nothing ever fails.
    static bool arePossible();

private:
    int mNth;
};
