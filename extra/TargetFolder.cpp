// SPDX-License-Identifier: MIT
#include "extra/TargetFolder.h"

#include "extra/SafeFileName.h"

#include <QFile>
#include <QHash>
#include <QSet>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvomime {

namespace {

Failure systemFailure(int number)
{
    return {QString::fromLocal8Bit(std::strerror(number))};
}

// One key for all names that some system takes for the same file. Only the upper case makes
// letters of those that have no single one ("ß").
QString keyOf(const QString& name)
{
    return name.normalized(QString::NormalizationForm_D)
        .toUpper()
        .toCaseFolded()
        .normalized(QString::NormalizationForm_D);
}

} // namespace

struct TargetFolder::Private
{
    explicit Private(int number) : descriptor(number) {}
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;
    ~Private() { close(descriptor); }

    // Read when the first name is wanted; what other programs add later is met by O_EXCL.
    void readNames()
    {
        if (knowsNames)
            return;
        knowsNames = true;
        const int own = openat(descriptor, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        DIR* folder = own < 0 ? nullptr : fdopendir(own);
        if (folder == nullptr) {
            if (own >= 0)
                close(own);
            return;
        }
        while (const dirent* entry = readdir(folder))
            taken.insert(keyOf(QString::fromUtf8(entry->d_name)));
        closedir(folder);
    }

    int descriptor;
    bool knowsNames = false;
    // The keys of all names in the folder.
    QSet<QString> taken;
    // How many copies of a name were tried, so that a flood of equal names stays linear.
    QHash<QString, int> copies;
};

TargetFolder::TargetFolder(std::unique_ptr<Private> folder) : d(std::move(folder)) {}
TargetFolder::TargetFolder(TargetFolder&& other) noexcept = default;
TargetFolder& TargetFolder::operator=(TargetFolder&& other) noexcept = default;
TargetFolder::~TargetFolder() = default;

Result<TargetFolder> TargetFolder::open(const QString& path)
{
    return open(QFile::encodeName(path));
}

Result<TargetFolder> TargetFolder::open(const QByteArray& encodedPath)
{
    if (mkdir(encodedPath.constData(), 0777) != 0 && errno != EEXIST)
        return systemFailure(errno);
    const int descriptor = ::open(encodedPath.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return systemFailure(errno);
    return TargetFolder(std::make_unique<Private>(descriptor));
}

Result<QString> TargetFolder::create(const QString& wanted, QFile& file, const QString& fallback)
{
    d->readNames();
    const QString safe = safeFileName(wanted, fallback);
    int& copy = d->copies[keyOf(safe)];
    for (;;) {
        const QString name = numberedFileName(safe, ++copy);
        const QString key = keyOf(name);
        if (d->taken.contains(key))
            continue;
        const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        const int descriptor = openat(d->descriptor, name.toUtf8().constData(), flags, 0666);
        if (descriptor < 0 && errno != EEXIST)
            return systemFailure(errno);
        d->taken.insert(key);
        if (descriptor < 0)
            continue;
        if (file.open(descriptor, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle))
            return name;
        close(descriptor);
        return Failure{file.errorString()};
    }
}

Result<void> TargetFolder::remove(const QString& name)
{
    if (unlinkat(d->descriptor, name.toUtf8().constData(), 0) != 0)
        return systemFailure(errno);
    return {};
}

} // namespace tarvomime
