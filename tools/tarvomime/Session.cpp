// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Session.h"

#include "tools/tarvomime/Printable.h"

#include <algorithm>
#include <cstdio>
#include <poll.h>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

// Whether standard output is a pipe that nobody reads any more.
bool isReaderGone()
{
    pollfd output = {STDOUT_FILENO, 0, 0};
    return poll(&output, 1, 0) == 1 && (output.revents & POLLERR) != 0;
}

} // namespace

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

void Session::complainOfOutput(const std::string& reason)
{
    if (isReaderGone())
        mStatus = std::max(mStatus, ExitStatus::ReaderGone);
    else
        complain("standard output", reason);
}

void Session::endOutput()
{
    mOutput.flush();
    mOutputEnded = true;
}

int Session::finish()
{
    const bool complete = mOutputEnded || (mOutput.flush() && isOutputOpen());
    // An interrupted command has had its output cut off on purpose.
    if (!complete && mStatus != ExitStatus::Interrupted)
        complainOfOutput(mOutput.errorString().toStdString());
    if (mStatus == ExitStatus::Done && mHasFound)
        mStatus = ExitStatus::Found;
    return static_cast<int>(mStatus);
}

} // namespace tarvomime::tool
