// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <unistd.h>

/// A file in a folder of its own; both are gone with the object.
class StoredFile
{
public:
    explicit StoredFile(const QByteArray& content)
    {
        QFile file(path());
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
    }

    StoredFile(const StoredFile&) = delete;
    StoredFile& operator=(const StoredFile&) = delete;
    // A process that was forked off leaves it to the one that made it.
    ~StoredFile() { mFolder.setAutoRemove(mMaker == getpid()); }

    QString path() const { return mFolder.filePath(QStringLiteral("stored")); }
    QString missingPath() const { return mFolder.filePath(QStringLiteral("missing")); }
    void cutTo(int length) const { QFile::resize(path(), length); }

private:
    QTemporaryDir mFolder;
    const pid_t mMaker = getpid();
};

/// The content of a file on disk.
inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
