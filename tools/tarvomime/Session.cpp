// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Session.h"

#include "tools/tarvomime/Printable.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace tarvomime::tool {

Session::Session()
{
    mOutput.open(STDOUT_FILENO, QIODevice::WriteOnly);
}

void Session::complain(const std::string& subject, const std::string& reason)
{
    printErrorLine(subject + ": " + reason);
    mStatus = std::max(mStatus, ExitStatus::Failed);
}

void Session::refuse(const std::string& reason)
{
    printErrorLine(reason);
    mStatus = std::max(mStatus, ExitStatus::WrongUsage);
}

void Session::printErrorLine(const std::string& line)
{
    // What was printed before belongs before the complaint where both go to the same place.
    mOutput.flush();
    std::fprintf(stderr, "tarvomime: %s\n", printableLine(line).constData());
}

int Session::finish()
{
    if (!mOutput.flush() || !isOutputOpen()) {
        // An interrupted command has had its output cut off on purpose.
        if (mStatus != ExitStatus::Interrupted)
            complain("standard output", mOutput.errorString().toStdString());
    }
    if (mStatus == ExitStatus::Done && mHasFound)
        mStatus = ExitStatus::Found;
    return static_cast<int>(mStatus);
}

} // namespace tarvomime::tool
