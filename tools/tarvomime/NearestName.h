// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tarvomime::tool {

/// The name that was most likely meant by `typed`: one that begins with it, or takes the fewest
/// wrong, missing or swapped letters; empty where none is near.
std::string nearestName(const std::string& typed, const std::vector<std::string>& names);

} // namespace tarvomime::tool
