// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The library under measurement; each program links one implementation.
///
/// Parses the whole message from memory and reads its recipients and its content type, which some
/// libraries leave unparsed until then. The result keeps the compiler from dropping the work.
int parseMessage(const std::string& text);
