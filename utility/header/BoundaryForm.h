// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tarvomime {

/// How many hyphens and, behind them, upper-case hexadecimal digits a boundary has that the library
/// draws.
constexpr int kBoundaryHyphens = 12;
constexpr int kBoundaryDigits = 24;
constexpr std::string_view kBoundaryDigitSet = "0123456789ABCDEF";

} // namespace tarvomime
