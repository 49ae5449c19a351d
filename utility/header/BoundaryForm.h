// SPDX-License-Identifier: MIT
#pragma once

namespace tarvomime {

/// How many hyphens and, behind them, upper-case hexadecimal digits a boundary has that the library
/// draws.
constexpr int kBoundaryHyphens = 12;
constexpr int kBoundaryDigits = 24;

} // namespace tarvomime
