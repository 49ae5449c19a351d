// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Result.h"
#include "extra/TarvomimeExtraExport.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace tarvomime {

/// A message file of a Maildir.
struct MaildirMessage
{
    QString path;
    /// Whether it lies in "new": no reader has seen it in a list yet.
    bool isNew = false;
    /// Its flags, sorted, each once: "D" draft, "F" flagged, "P" passed on, "R" replied to, "S"
    /// seen, "T" thrown away, and lower-case letters of the store's own.
    QString flags;
    /// When it was delivered, by its name; by the file's time where the name does not say.
    QDateTime delivered;
    qint64 size = 0;

    bool hasFlag(char flag) const { return flags.contains(QLatin1Char(flag)); }
};

/// The messages of a Maildir, those in "new" and "cur", in the order of their names, which is that
/// of their delivery. Those of its sub-folders do not belong to it. Fails where the folder is no
/// Maildir or cannot be read.
TARVOMIME_EXTRA_EXPORT Result<QList<MaildirMessage>> readMaildir(const QString& path);

/// The paths of the sub-folders of a Maildir (".Sent", ".Archive.2024"), sorted; the Maildir itself
/// is not among them.
TARVOMIME_EXTRA_EXPORT QStringList maildirFolders(const QString& path);

/// Whether `path` is a folder that holds "new" and "cur".
TARVOMIME_EXTRA_EXPORT bool isMaildir(const QString& path);

/// The flags that the name of a message file carries behind ":2,".
TARVOMIME_EXTRA_EXPORT QString maildirFlags(const QString& fileName);

} // namespace tarvomime
