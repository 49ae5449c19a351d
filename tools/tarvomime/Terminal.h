// SPDX-License-Identifier: MIT
#pragma once

namespace tarvomime::tool {

/// Whether standard output is a terminal.
bool isOutputTerminal();

/// How many characters fit into a line of it; 0 where standard output is no terminal.
int outputWidth();

} // namespace tarvomime::tool
