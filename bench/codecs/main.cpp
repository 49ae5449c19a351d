// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <cstring>

// Takes the options of the benchmark library, or "--once" to run everything as shortly as it goes.
int main(int argc, char** argv)
{
    char shortest[] = "--benchmark_min_time=0";
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--once") == 0)
            argv[i] = shortest;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
