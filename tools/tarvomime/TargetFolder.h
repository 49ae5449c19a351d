// SPDX-License-Identifier: MIT
#pragma once

#include "tools/tarvomime/Descriptor.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <string>

namespace tarvomime::tool {

/// The folder that files of a message are written to. Each file is new: nothing that exists is
/// overwritten or followed, so that no name a message chooses leads out of the folder.
class TargetFolder
{
public:
    /// Opens the folder, making it (but not the folders above it) where it is missing.
    explicit TargetFolder(const std::string& path);

    bool isOpen() const { return mDescriptor.isOpen(); }
    const std::string& problem() const { return mProblem; }

    /// Creates a file of that safe name, or of a numbered one where that exists. Gives the name it
    /// got in `created` and an open descriptor for the caller, or -1 with `errno` set.
    int create(const QString& name, QByteArray& created);
    void remove(const QByteArray& name) const;

private:
    static int openOrMake(const std::string& path);

    Descriptor mDescriptor;
    std::string mProblem;
    /// How many copies of a name were created, so that a flood of equal names stays linear.
    QHash<QString, int> mCopies;
};

} // namespace tarvomime::tool
