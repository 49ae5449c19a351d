// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <string_view>
#include <vector>

#ifdef TARVOMIME_SIMD
// First of all: it says which targets there are.
#include "utility/codec/VectorTargets.h"

#include <hwy/targets.h>
#endif

namespace {

// From here on the library takes this processor for one that has AVX2 and nothing newer.
void useNoAvx512()
{
#if defined(TARVOMIME_SIMD) && HWY_ARCH_X86
    // The newer a processor, the lower its bit.
    hwy::DisableTargets(HWY_AVX2 - 1);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
#endif
}

} // namespace

// Takes the options of the benchmark library, "--once" to run everything as shortly as it goes, and
// "--no-avx512" to measure what an older processor would choose.
int main(int argc, char** argv)
{
    char shortest[] = "--benchmark_min_time=0";
    std::vector<char*> options;
    for (int i = 0; i < argc; ++i) {
        const std::string_view option(argv[i]);
        if (option == "--no-avx512")
            useNoAvx512();
        else
            options.push_back(option == "--once" ? shortest : argv[i]);
    }
    int count = static_cast<int>(options.size());
    benchmark::Initialize(&count, options.data());
    if (benchmark::ReportUnrecognizedArguments(count, options.data()))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
