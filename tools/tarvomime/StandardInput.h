// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tarvomime::tool {

class Session;

/// Reads standard input to its end into `out`. False after a complaint, or when Ctrl-C ended the
/// wait.
bool readStandardInput(QByteArray& out, Session& session);

/// A descriptor of all that standard input holds: its file, or a nameless copy of what comes
/// through a pipe or from a terminal. -1, with the reason in `errno`, where it cannot be read.
int openStandardInput();

} // namespace tarvomime::tool
