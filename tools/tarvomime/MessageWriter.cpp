// SPDX-License-Identifier: MIT
#include "tools/tarvomime/MessageWriter.h"

#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/OutputFile.h"
#include "tools/tarvomime/Session.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

namespace tarvomime::tool {

void writeResult(const std::string& out, qint64 expectedSize, Session& session,
                 const std::function<int(QFile*)>& write)
{
    const InterruptGuard guard;
    ProgressBar bar("Writing", expectedSize);
    OutputFile target(out, &bar);
    if (!target.isOpen()) {
        session.complain(target.name(), target.problem());
        return;
    }
    // Work that wrote nothing never asked whether it was to stop.
    const bool complete = write(target.file()) == 0 && !wasInterrupted() && target.commit();
    if (complete)
        return;
    if (wasInterrupted())
        session.setInterrupted();
    else if (out.empty())
        session.complainOfOutput(target.problem());
    else
        session.complain(target.name(), target.problem());
}

void writeMessage(EMAIL_Message& message, const std::string& out, qint64 expectedSize,
                  Session& session)
{
    writeResult(out, expectedSize, session,
                [&message](QFile* file) { return message.assemble(file); });
}

// An attachment that cannot be read any more fails again when it is written.
void writeNewMessage(EMAIL_MIME& message, const std::string& out, qint64 expectedSize,
                     Session& session)
{
    message.makeBoundariesUnique();
    writeMessage(*message.mMessage, out, expectedSize, session);
}

} // namespace tarvomime::tool
