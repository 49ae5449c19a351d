// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <string>

namespace tarvomime::tool {

/// What the exit status says, in the words of `runTool`. 141 is what a shell says of a program that
/// nobody listens to any more.
enum class ExitStatus {
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
    Found = 3,
    Interrupted = 130,
    ReaderGone = 141
};

/// One run of the tool: its standard output, its complaints and the exit status they lead to.
///
/// Output is gathered and written in blocks; `finish` writes the rest and finds out whether the
/// output took all of it.
class Session
{
public:
    Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Standard output, for operations that stream into a file.
    QFile& output() { return mOutput; }
    void print(const QByteArray& bytes) { mOutput.write(bytes); }
    /// False once standard output has refused something: going on would be work for nobody.
    bool isOutputOpen() const { return mOutput.error() == QFile::NoError; }

    /// Prints "tarvomime: SUBJECT: REASON" on standard error; the exit status becomes 1 unless it
    /// is a graver one already.
    void complain(const std::string& subject, const std::string& reason);
    /// The same for a command line that asks for something impossible: the exit status becomes 2.
    void refuse(const std::string& reason);
    /// The exit status becomes 3 unless something failed.
    void setFound() { mHasFound = true; }
    /// The same for standard output. That its reader had enough ("| head") is no news to anybody:
    /// it changes nothing but the exit status.
    void complainOfOutput(const std::string& reason);
    /// Writes what is left to a reader that may leave when it likes, as a pager does.
    void endOutput();
    void setInterrupted() { mStatus = ExitStatus::Interrupted; }

    /// Writes what is left of the output and returns the exit status.
    int finish();

private:
    void printErrorLine(const std::string& line);

    QFile mOutput;
    bool mOutputEnded = false;
    ExitStatus mStatus = ExitStatus::Done;
    bool mHasFound = false;
};

} // namespace tarvomime::tool
