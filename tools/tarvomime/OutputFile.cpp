// SPDX-License-Identifier: MIT
#include "tools/tarvomime/OutputFile.h"

#include "tools/tarvomime/Interrupt.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

mode_t modeOfNewFiles()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// The file that `path` leads to, symbolic links followed, so that a link stays one.
std::string resolved(const std::string& path)
{
    char buffer[PATH_MAX];
    return realpath(path.c_str(), buffer) != nullptr ? std::string(buffer) : path;
}

} // namespace

qint64 WatchedFile::writeData(const char* data, qint64 length)
{
    if (wasInterrupted())
        return -1;
    if (mBar != nullptr)
        mBar->advance(length);
    return QFile::writeData(data, length);
}

OutputFile::OutputFile(const std::string& path, ProgressBar* bar)
    : mName(path.empty() ? "standard output" : path), mFile(bar)
{
    if (path.empty())
        mFile.open(STDOUT_FILENO, QIODevice::WriteOnly);
    else
        openTarget(path);
}

OutputFile::~OutputFile()
{
    mFile.close();
    if (!mTemporary.empty())
        unlink(mTemporary.c_str());
}

void OutputFile::openTarget(const std::string& path)
{
    struct stat status;
    const bool exists = stat(path.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode))
        mProblem = "is a folder, not a file";
    else if (!exists && lstat(path.c_str(), &status) == 0)
        mProblem = "is a link that leads nowhere";
    else if (exists && !S_ISREG(status.st_mode))
        adopt(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
    else
        openBeside(path);
    if (isOpen() && !mTemporary.empty())
        fchmod(mFile.handle(), exists ? status.st_mode & 07777 : modeOfNewFiles());
}

void OutputFile::openBeside(const std::string& path)
{
    mTarget = resolved(path);
    const std::size_t slash = mTarget.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : mTarget.substr(0, slash + 1);
    std::string pattern = folder + ".tarvomime-XXXXXX";
    const int descriptor = mkostemp(pattern.data(), O_CLOEXEC);
    if (descriptor >= 0)
        mTemporary = pattern;
    adopt(descriptor);
}

void OutputFile::adopt(int descriptor)
{
    if (descriptor < 0 ||
        !mFile.open(descriptor, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle))
        mProblem = std::strerror(errno);
}

std::string OutputFile::problem() const
{
    if (!mProblem.empty())
        return mProblem;
    if (mFile.error() != QFile::NoError)
        return mFile.errorString().toStdString();
    return "not everything that belongs into it could be read";
}

bool OutputFile::commit()
{
    if (!mFile.flush() || mFile.error() != QFile::NoError)
        return false;
    if (mTemporary.empty())
        return true;
    mFile.close();
    if (rename(mTemporary.c_str(), mTarget.c_str()) != 0) {
        mProblem = std::strerror(errno);
        return false;
    }
    mTemporary.clear();
    return true;
}

} // namespace tarvomime::tool
