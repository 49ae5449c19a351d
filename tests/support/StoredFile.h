// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

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

    QString path() const { return mFolder.filePath(QStringLiteral("stored")); }
    QString missingPath() const { return mFolder.filePath(QStringLiteral("missing")); }
    void cutTo(int length) const { QFile::resize(path(), length); }

private:
    QTemporaryDir mFolder;
};

/// The content of a file on disk.
inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
