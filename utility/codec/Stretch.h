// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace tarvomime {

/// What a vectorised path has taken of its input, and what became of it, in bytes.
struct Stretch
{
    std::size_t read = 0;
    std::size_t written = 0;
};

} // namespace tarvomime
