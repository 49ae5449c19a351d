// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Result.h"
#include "extra/TarvomimeExtraExport.h"

#include <QByteArray>
#include <memory>

class QFile;

namespace tarvomime {

/// The folder that files of a message are written to.
///
/// Each file is new: nothing that exists is overwritten or followed, so that no name a message
/// chooses leads out of the folder, and two programs that save at the same time never get the same
/// file. Names that differ only in case, or in how an accent is stored, count as equal: the folder
/// can be moved to a system that takes them for one file.
class TARVOMIME_EXTRA_EXPORT TargetFolder
{
public:
    /// Opens the folder, making it (but not the folders above it) where it is missing.
    static Result<TargetFolder> open(const QString& path);
    /// The same for a path as the system stores it.
    static Result<TargetFolder> open(const QByteArray& encodedPath);

    TargetFolder(TargetFolder&& other) noexcept;
    TargetFolder& operator=(TargetFolder&& other) noexcept;
    ~TargetFolder();

    /// Creates a file under the name that `safeFileName` makes of `wanted`, or of `fallback`,
    /// numbered ("a (2).txt") where that is taken. Opens `file` on it for writing, and gives the
    /// name it got, which is UTF-8 on the disk.
    Result<QString> create(const QString& wanted, QFile& file, const QString& fallback = {});

    /// Removes a file that create() made, for one that could not be completed.
    Result<void> remove(const QString& name);

private:
    struct Private;
    explicit TargetFolder(std::unique_ptr<Private> folder);

    std::unique_ptr<Private> d;
};

} // namespace tarvomime
