// SPDX-License-Identifier: MIT
#pragma once

#include <random>
#include <string>
#include <vector>

/// How a message is made: pieces, each repeated. Scaling the repetitions grows the message and
/// keeps its shape, which shows how time and memory grow with it.
class Recipe
{
public:
    static Recipe random(std::mt19937& random);
    Recipe mutated(std::mt19937& random) const;

    /// At most some MiB long; a '%' of a piece becomes the number of the repetition.
    std::string text(int scale) const;
    std::string description() const;

    /// The same for a command line: "12x4000,3x1", piece and count.
    std::string numbers() const;
    static Recipe ofNumbers(const std::string& numbers);

private:
    struct Step
    {
        std::size_t piece;
        int count;
    };
    std::vector<Step> mSteps;
};
