// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tarvomime::tool {

/// The complaint about a charset that nobody knows: with the names of those that have a number.
std::string unknownCharset(const std::string& name);

} // namespace tarvomime::tool
