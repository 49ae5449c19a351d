// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <functional>
#include <string>

class EMAIL_MIME;
class EMAIL_Message;
class QFile;

namespace tarvomime::tool {

class Session;

/// Runs `write` (0 for success) on the file `out`, or on standard output when that is empty, and
/// complains about what goes wrong. `expectedSize` is for the progress bar. Ctrl-C ends the work,
/// leaves no half-written file and makes the exit status 130.
void writeResult(const std::string& out, qint64 expectedSize, Session& session,
                 const std::function<int(QFile*)>& write);

/// Assembles `message` to `out`.
void writeMessage(EMAIL_Message& message, const std::string& out, qint64 expectedSize,
                  Session& session);

/// The same for a new message, in which no line of an attachment may pass for a boundary.
void writeNewMessage(EMAIL_MIME& message, const std::string& out, qint64 expectedSize,
                     Session& session);

} // namespace tarvomime::tool
