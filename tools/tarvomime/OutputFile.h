// SPDX-License-Identifier: MIT
#pragma once

#include "tools/tarvomime/ProgressBar.h"

#include <QFile>
#include <string>

namespace tarvomime::tool {

/// A file that stops taking bytes once the user pressed Ctrl-C, and moves a progress bar. Every
/// operation that writes to a file can be stopped so, whether it takes a callback or not.
class WatchedFile : public QFile
{
public:
    /// `bar` may be null.
    explicit WatchedFile(ProgressBar* bar = nullptr) : mBar(bar) {}

    void setBar(ProgressBar* bar) { mBar = bar; }

protected:
    qint64 writeData(const char* data, qint64 length) override;

private:
    ProgressBar* mBar;
};

/// Where a command's result goes: a file, or standard output for an empty path.
///
/// A file comes into being under its name only when it is complete (`commit`); until then, and when
/// the command fails or is interrupted, whatever stood under that name stays as it was, and nothing
/// half-written is left. A target that is no regular file (a device, a pipe) is written directly.
class OutputFile
{
public:
    explicit OutputFile(const std::string& path, ProgressBar* bar = nullptr);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    bool isOpen() const { return mProblem.empty(); }
    /// Why the file could not be opened, written or completed.
    std::string problem() const;
    /// The path as it was given, or "standard output".
    const std::string& name() const { return mName; }
    QFile* file() { return &mFile; }
    /// Completes the file; false when it did not take everything.
    bool commit();

private:
    void openTarget(const std::string& path);
    void openBeside(const std::string& path);
    void adopt(int descriptor);

    std::string mName;
    std::string mProblem;
    WatchedFile mFile;
    std::string mTarget;
    std::string mTemporary;
};

} // namespace tarvomime::tool
