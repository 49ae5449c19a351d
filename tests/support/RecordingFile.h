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
    /// A callback that goes on, and notes behind how many writes it was called.
    auto notingCallback()
    {
        return [this] { return mCalls.push_back(mWrites.size()), 0; };
    }
    const std::vector<std::size_t>& calls() const { return mCalls; }
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
    std::vector<std::size_t> mCalls;
};
