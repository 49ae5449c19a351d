// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <initializer_list>
#include <string_view>

namespace tarvomime {

/// The pieces one behind the other, in one allocation; `refusedText()` when they are too long
/// together.
QCString joined(std::initializer_list<std::string_view> pieces);

} // namespace tarvomime
