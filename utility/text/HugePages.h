// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace tarvomime {

/// Asks for huge pages under memory that is about to be filled for the first time, where there is
/// enough of it: a page that is touched for the first time costs more than filling it.
void preferHugePages(char* start, std::size_t length);

} // namespace tarvomime
