// SPDX-License-Identifier: MIT
#include "tools/tarvomime/MailFiles.h"

#include "tools/tarvomime/Session.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace tarvomime::tool {

namespace {

struct FolderCloser
{
    void operator()(DIR* folder) const { closedir(folder); }
};

bool isFolder(const std::string& path)
{
    struct stat status;
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isMaildir(const std::string& path)
{
    return isFolder(path + "/cur") && isFolder(path + "/new");
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
        struct stat status;
        if (stat(path.c_str(), &status) != 0)
            mSession.complain(path, std::strerror(errno));
        else if (S_ISDIR(status.st_mode))
            openFolder(path);
        else
            mFound.push_back({path, status.st_size});
    }

    void openFolder(const std::string& path)
    {
        std::vector<std::string> names;
        if (!readNames(path, names)) {
            mSession.complain(path, std::strerror(errno));
            return;
        }
        const bool maildir = isMaildir(path);
        std::sort(names.begin(), names.end());
        for (auto name = names.rbegin(); name != names.rend(); ++name) {
            const std::string entry = path + '/' + *name;
            if (maildir ? belongsToMaildir(*name, entry) : belongsToFolder(*name, entry))
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

    /// "tmp" holds messages that are not there yet; sub-folders begin with a dot.
    static bool belongsToMaildir(const std::string& name, const std::string& entry)
    {
        const bool subfolder = name.size() > 1 && name[0] == '.' && name != "..";
        return name == "cur" || name == "new" || (subfolder && isMaildir(entry));
    }

    static bool belongsToFolder(const std::string& name, const std::string& entry)
    {
        struct stat link;
        struct stat target;
        const bool linkToFolder = lstat(entry.c_str(), &link) == 0 && S_ISLNK(link.st_mode) &&
                                  stat(entry.c_str(), &target) == 0 && S_ISDIR(target.st_mode);
        return name[0] != '.' && !linkToFolder;
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
