// SPDX-License-Identifier: MIT
#include "bench/messages/PeakMemory.h"

#include <malloc.h>

#include <fstream>
#include <string>

namespace bench {

namespace {

double statusMegabytes(const std::string& key)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        double kilobytes = 0;
        if (word == key && status >> kilobytes)
            return kilobytes / 1024;
    }
    return 0;
}

} // namespace

PeakMemory::PeakMemory()
{
    // What earlier work has freed would be taken again without a trace.
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5;
    mBefore = statusMegabytes("VmRSS:");
}

double PeakMemory::megabytes() const
{
    return statusMegabytes("VmHWM:") - mBefore;
}

} // namespace bench
