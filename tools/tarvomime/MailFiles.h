// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <string>
#include <vector>

namespace tarvomime::tool {

class Session;

/// A file that holds one message or, as an mbox, many.
struct MailFile
{
    std::string path;
    qint64 size;
};

/// All mail files that `paths` name, in order: a file is itself, a folder stands for the files in
/// it and below, sorted by name. Of a Maildir only the messages are taken ("new" and "cur"), its
/// sub-folders included. In other folders hidden files are left out; links to folders are not
/// followed, so that no loop is walked. What cannot be read is complained about.
std::vector<MailFile> findMailFiles(const std::vector<std::string>& paths, Session& session);

} // namespace tarvomime::tool
