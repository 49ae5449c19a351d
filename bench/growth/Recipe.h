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

private:
    struct Step
    {
        std::size_t piece;
        int count;
    };
    std::vector<Step> mSteps;
};
