// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tarvomime::tool {

class Session;

/// Reads standard input to its end into `out`. False after a complaint, or when Ctrl-C ended the
/// wait.
bool readStandardInput(QByteArray& out, Session& session);

} // namespace tarvomime::tool
