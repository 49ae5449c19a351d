// SPDX-License-Identifier: MIT
#include "tools/tarvomime/TargetFolder.h"

#include "extra/SafeFileName.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace tarvomime::tool {

int TargetFolder::openOrMake(const std::string& path)
{
    if (mkdir(path.c_str(), 0777) != 0 && errno != EEXIST)
        return -1;
    return open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

TargetFolder::TargetFolder(const std::string& path) : mDescriptor(openOrMake(path))
{
    if (!isOpen())
        mProblem = std::strerror(errno);
}

int TargetFolder::create(const QString& name, QByteArray& created)
{
    for (;;) {
        created = numberedFileName(name, ++mCopies[name]).toUtf8();
        const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        const int descriptor = openat(mDescriptor.number(), created.constData(), flags, 0666);
        if (descriptor >= 0 || errno != EEXIST)
            return descriptor;
    }
}

void TargetFolder::remove(const QByteArray& name) const
{
    unlinkat(mDescriptor.number(), name.constData(), 0);
}

} // namespace tarvomime::tool
