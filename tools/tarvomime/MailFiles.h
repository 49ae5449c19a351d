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

/// All mail files that `paths` name, in order: a file is itself, "-" standard input, and a folder
/// stands for the files in it and below, sorted by name, a Maildir for its messages in the order of
/// their delivery and then those of its sub-folders. In other folders hidden files are left out,
/// and links to folders are not followed. What cannot be read is complained about.
std::vector<MailFile> findMailFiles(const std::vector<std::string>& paths, Session& session);

} // namespace tarvomime::tool
