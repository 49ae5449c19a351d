// SPDX-License-Identifier: MIT
#pragma once

namespace bench {

/// What a piece of work takes beyond the memory that the process held before it, in MiB; pages of
/// mapped files count. 0 where the system does not tell.
class PeakMemory
{
public:
    PeakMemory();
    double megabytes() const;

private:
    double mBefore;
};

} // namespace bench
