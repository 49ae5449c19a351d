// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <ostream>

/// What a run of the tool left behind. `status` is -1 when it crashed or did not end.
struct ToolResult
{
    int status;
    QByteArray out;
    QByteArray err;
};

void PrintTo(const ToolResult& result, std::ostream* out);

/// A folder of its own for one test, and the tool run inside it.
class ToolRunner
{
public:
    ToolRunner();

    /// Writes a file into the folder; gives its path.
    QString write(const QString& name, const QByteArray& content) const;
    QByteArray read(const QString& name) const;
    QString path(const QString& name) const { return mFolder.filePath(name); }
    /// Names of all files below the folder, sorted.
    QStringList files() const;

    ToolResult run(const QStringList& arguments, const QByteArray& input = {}) const;
    /// The same with standard output going to the file `device`.
    ToolResult runInto(const QString& device, const QStringList& arguments) const;
    /// Starts the tool and leaves it running.
    std::unique_ptr<QProcess> start(const QStringList& arguments) const;
    static ToolResult finish(QProcess& process);
    /// Returns once there are `count` files; false when `process` ended first.
    bool waitForFiles(QProcess& process, int count) const;
    /// Returns once `process` no longer dies of Ctrl-C but handles it; false when it ended first.
    static bool waitUntilInterruptible(const QProcess& process);

private:
    QTemporaryDir mFolder;
};
