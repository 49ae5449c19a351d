// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Util.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <functional>
#include <iosfwd>
#include <vector>

/// What the library does with a body in a file, for tests that take the ground from under it.
struct FileJob
{
    using Work = std::function<int(QFile* out, const ProgressCallback& callback)>;

    const char* name;
    /// The file in which `content` lies for this job.
    QByteArray (*stored)(const QByteArray& content);
    /// The objects, made from a file that is whole; then the operation itself, 0 or -1.
    Work (*prepare)(const QString& path, int length);
    /// Whether it writes to `out`, and whether it asks the callback before each full block.
    bool writes;
    bool asks;
};

void PrintTo(const FileJob& job, std::ostream* out);

/// Every operation that reads a stored body block by block.
const std::vector<FileJob>& streamingJobs();
/// Every operation that wants all of a file at once, and maps a big one.
const std::vector<FileJob>& mappingJobs();
/// The streaming ones, the mapping ones, and those that read a file for themselves and write
/// nothing.
std::vector<FileJob> allJobs();

/// `size` bytes of content for a job, without NUL.
QByteArray contentOfSize(int size);
