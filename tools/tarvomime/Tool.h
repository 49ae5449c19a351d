// SPDX-License-Identifier: MIT
#pragma once

namespace tarvomime::tool {

/// Runs one command line (`arguments[0]` is the program's name) and returns the exit status:
/// 0 when all went well, 1 when a file failed, 2 for wrong usage, 130 after Ctrl-C.
int runTool(int argumentCount, const char* const* arguments);

} // namespace tarvomime::tool
