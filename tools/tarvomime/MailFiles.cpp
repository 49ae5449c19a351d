// SPDX-License-Identifier: MIT
#include "tools/tarvomime/MailFiles.h"

#include "extra/Maildir.h"
#include "tools/tarvomime/Session.h"

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

struct FolderCloser
{
    void operator()(DIR* folder) const { closedir(folder); }
};

// Links to folders are not followed, so that no loop is walked.
bool belongsToFolder(const std::string& name, const std::string& entry)
{
    struct stat link;
    struct stat target;
    const bool linkToFolder = lstat(entry.c_str(), &link) == 0 && S_ISLNK(link.st_mode) &&
                              stat(entry.c_str(), &target) == 0 && S_ISDIR(target.st_mode);
    return name[0] != '.' && !linkToFolder;
}

class Search
{
public:
    explicit Search(Session& session) : mSession(session) {}

    std::vector<MailFile> run(const std::vector<std::string>& paths)
    {
        // The top of the stack is what comes next.
        mPending.assign(paths.rbegin(), paths.rend());
        while (!mPending.empty()) {
            const std::string path = std::move(mPending.back());
            mPending.pop_back();
            visit(path);
        }
        return std::move(mFound);
    }

private:
    void visit(const std::string& path)
    {
        struct stat status = {};
        const QString name = QFile::decodeName(path.c_str());
        if (path == "-")
            (void)fstat(STDIN_FILENO, &status);
        else if (stat(path.c_str(), &status) != 0)
            return mSession.complain(path, std::strerror(errno));
        if (path == "-" || !S_ISDIR(status.st_mode))
            mFound.push_back({path, status.st_size});
        else if (isMaildir(name))
            addMaildirs(name);
        else
            openFolder(path);
    }

    // Sub-folders of a Maildir have none of their own.
    void addMaildirs(const QString& path)
    {
        addMaildir(path);
        for (const QString& folder : maildirFolders(path))
            addMaildir(folder);
    }

    void addMaildir(const QString& path)
    {
        const Result<QList<MaildirMessage>> messages = readMaildir(path);
        if (!messages)
            return mSession.complain(QFile::encodeName(path).toStdString(),
                                     messages.reason().toStdString());
        for (const MaildirMessage& message : *messages)
            mFound.push_back({QFile::encodeName(message.path).toStdString(), message.size});
    }

    void openFolder(const std::string& path)
    {
        std::vector<std::string> names;
        if (!readNames(path, names))
            return mSession.complain(path, std::strerror(errno));
        std::sort(names.begin(), names.end());
        for (auto name = names.rbegin(); name != names.rend(); ++name) {
            const std::string entry = path + '/' + *name;
            if (belongsToFolder(*name, entry))
                mPending.push_back(entry);
        }
    }

    static bool readNames(const std::string& path, std::vector<std::string>& names)
    {
        const std::unique_ptr<DIR, FolderCloser> folder(opendir(path.c_str()));
        if (!folder)
            return false;
        while (const dirent* entry = readdir(folder.get()))
            names.emplace_back(entry->d_name);
        return true;
    }

    Session& mSession;
    std::vector<std::string> mPending;
    std::vector<MailFile> mFound;
};

} // namespace

std::vector<MailFile> findMailFiles(const std::vector<std::string>& paths, Session& session)
{
    return Search(session).run(paths);
}

} // namespace tarvomime::tool
