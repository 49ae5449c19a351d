// SPDX-License-Identifier: MIT
// run_shape SHAPE SIZE     parses one message of that shape
// run_shape corpus FOLDER  parses every file below the folder, ten times over
//
// Prints the processor seconds that parsing and freeing took, the peak memory in megabytes beyond
// the text, and how many messages the library gave up with an exception. scripts/bench-shapes
// starts it, one process for each measurement.
#include "bench/shapes/Library.h"
#include "bench/shapes/Shapes.h"

#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

constexpr int corpusRounds = 10;

struct Usage
{
    double seconds;
    double peakMegabytes;
};

double secondsOf(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

// Processor time: other work of the machine does not count.
Usage usageSoFar()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return {secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) / 1000};
}

std::vector<std::string> filesBelow(const char* folder)
{
    std::vector<std::string> texts;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        if (entry.is_regular_file())
            texts.emplace_back(std::istreambuf_iterator<char>(file),
                               std::istreambuf_iterator<char>());
    }
    return texts;
}

bool isParsed(const std::string& text)
{
    [[maybe_unused]] static volatile int result = 0;
    try {
        result = parseMessage(text);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s SHAPE SIZE | corpus FOLDER\n", argv[0]);
        return 2;
    }
    const std::string shape(argv[1]);
    const bool isCorpus = shape == "corpus";
    const std::vector<std::string> texts =
        isCorpus ? filesBelow(argv[2])
                 : std::vector<std::string>{shapeText(shape, std::atoi(argv[2]))};
    if (texts.empty() || (!isCorpus && texts.front().empty())) {
        std::fprintf(stderr, "nothing to parse\n");
        return 2;
    }
    const Usage before = usageSoFar();
    int failures = 0;
    for (int round = 0; round < (isCorpus ? corpusRounds : 1); ++round) {
        for (const std::string& text : texts)
            failures += isParsed(text) ? 0 : 1;
    }
    const Usage after = usageSoFar();
    std::printf("%.6f %.1f %d\n", after.seconds - before.seconds,
                after.peakMegabytes - before.peakMegabytes, failures);
    return 0;
}
