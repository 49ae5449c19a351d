// SPDX-License-Identifier: MIT
#include "extra/Maildir.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace tarvomime {

namespace {

// The seconds that a name begins with ("1718000000.M1P2.host"); 0 where it does not.
qint64 secondsOf(const QString& fileName)
{
    bool isNumber = false;
    const qint64 seconds = fileName.left(fileName.indexOf(u'.')).toLongLong(&isNumber);
    // Later than the year 9999 is no date but a number of another kind.
    return isNumber && seconds > 0 && seconds < 253402300800 ? seconds : 0;
}

MaildirMessage messageOf(const QFileInfo& file, bool isNew)
{
    MaildirMessage message;
    message.path = file.filePath();
    message.isNew = isNew;
    message.flags = maildirFlags(file.fileName());
    message.size = file.size();
    const qint64 seconds = secondsOf(file.fileName());
    message.delivered =
        seconds > 0 ? QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC) : file.lastModified();
    return message;
}

bool isEarlier(const MaildirMessage& a, const MaildirMessage& b)
{
    return a.delivered != b.delivered ? a.delivered < b.delivered : a.path < b.path;
}

} // namespace

bool isMaildir(const QString& path)
{
    const QDir folder(path);
    return QFileInfo(folder.filePath("cur")).isDir() && QFileInfo(folder.filePath("new")).isDir();
}

QString maildirFlags(const QString& fileName)
{
    const int info = int(fileName.lastIndexOf(QLatin1String(":2,")));
    QString flags;
    for (const QChar c : info < 0 ? QString() : fileName.mid(info + 3)) {
        const bool isFlag = (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
        // Other letters belong to a store that keeps more behind its flags.
        if (!isFlag)
            break;
        if (!flags.contains(c))
            flags += c;
    }
    std::sort(flags.begin(), flags.end());
    return flags;
}

Result<QList<MaildirMessage>> readMaildir(const QString& path)
{
    if (!isMaildir(path))
        return Failure{QStringLiteral("is no Maildir: it holds no \"new\" and \"cur\"")};
    QList<MaildirMessage> messages;
    for (const char* part : {"new", "cur"}) {
        const QDir folder(QDir(path).filePath(QLatin1String(part)));
        if (!folder.isReadable())
            return Failure{QStringLiteral("\"%1\" cannot be read").arg(QLatin1String(part))};
        const QFileInfoList files = folder.entryInfoList(QDir::Files, QDir::Unsorted);
        for (const QFileInfo& file : files)
            messages.append(messageOf(file, part[0] == 'n'));
    }
    std::sort(messages.begin(), messages.end(), isEarlier);
    return messages;
}

QStringList maildirFolders(const QString& path)
{
    const QDir folder(path);
    QStringList folders;
    const QStringList names =
        folder.entryList({".*"}, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& name : names) {
        if (isMaildir(folder.filePath(name)))
            folders.append(folder.filePath(name));
    }
    return folders;
}

} // namespace tarvomime
