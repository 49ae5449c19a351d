// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QTemporaryDir>
#include <vector>

/// A file that remembers the length of every write, open for writing in a folder of its own.
class RecordingFile : public QFile
{
public:
    RecordingFile()
    {
        setFileName(mFolder.filePath("out"));
        open(QIODevice::ReadWrite);
    }

    const std::vector<qint64>& writes() const { return mWrites; }
    /// What is on disk, whatever the object itself still holds back.
    QByteArray written() const
    {
        QFile file(fileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

protected:
    qint64 writeData(const char* data, qint64 length) override
    {
        mWrites.push_back(length);
        return QFile::writeData(data, length);
    }

private:
    QTemporaryDir mFolder;
    std::vector<qint64> mWrites;
};
