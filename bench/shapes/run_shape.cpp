// SPDX-License-Identifier: MIT
// run_shape SHAPE SIZE     parses one message of that shape
// run_shape corpus FOLDER  parses every file below the folder, ten times over
//
// Prints the seconds that parsing and freeing took and the peak memory in megabytes beyond the
// text. scripts/bench-shapes starts it, one process for each measurement.
#include "bench/shapes/Library.h"
#include "bench/shapes/Shapes.h"

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int corpusRounds = 10;

double peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1000;
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
    const double before = peakMegabytes();
    const auto start = Clock::now();
    int sum = 0;
    for (int round = 0; round < (isCorpus ? corpusRounds : 1); ++round) {
        for (const std::string& text : texts)
            sum += parseMessage(text);
    }
    const std::chrono::duration<double> seconds = Clock::now() - start;
    std::printf("%.6f %.1f %d\n", seconds.count(), peakMegabytes() - before, sum);
    return 0;
}
