// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <string_view>
#include <vector>

#ifdef TARVOMIME_SIMD
#include "utility/vectors/Processor.h"
#endif

namespace {

// From here on the library takes this processor for one that has AVX2 and nothing newer.
void useNoAvx512()
{
#ifdef TARVOMIME_SIMD
    if (tarvomime::runsAs(tarvomime::Processor::Avx2))
        tarvomime::useProcessor(tarvomime::Processor::Avx2);
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
