// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// From now on, every nothrow allocation of exactly `size` bytes fails, after `skipped` of them
/// have succeeded. Meant for death tests: the program ends before anything else allocates that
/// size.
void failNothrowNew(std::size_t size, int skipped = 0);
