// SPDX-License-Identifier: MIT
#pragma once

#include "extra/MboxReader.h"
#include "tools/tarvomime/MailFiles.h"
#include "tools/tarvomime/MailInputs.h"

#include <QIODevice>
#include <memory>
#include <string>
#include <vector>

namespace tarvomime::tool {

class InputFile;
class Session;

/// Where a message lies.
struct MailPlace
{
    std::shared_ptr<const InputFile> file;
    qint64 offset = 0;
    qint64 length = 0;
    /// Counted from 1; 0 for a file that is one message.
    int number = 0;

    bool isInMbox() const { return number > 0; }
    /// For people: "mail.eml", "archive.mbox, message 3", "standard input".
    std::string name() const;
};

/// All messages that the inputs of a command lead to, one after the other. What cannot be read is
/// complained about, and the others go on.
class MailSource
{
public:
    MailSource(const MailInputs& inputs, Session& session);

    /// The next message; false when there is none left, or nobody waits for one any more.
    bool next(MailPlace& place);
    /// Whether there may be more messages than one, so that each needs its name; known once the
    /// first was given.
    bool holdsSeveral() const { return mHoldsSeveral; }
    /// Bytes of all files, for a progress bar.
    qint64 totalSize() const;

private:
    bool openNext();
    bool takeMessage(MailPlace& place);
    bool isWanted(const MailPlace& place) const;
    bool mayStop() const;
    void complainOfAbsence();

    const MailInputs& mInputs;
    Session& mSession;
    std::vector<MailFile> mFiles;
    std::size_t mNextFile = 0;
    bool mHoldsSeveral;
    std::shared_ptr<const InputFile> mFile;
    // The bytes of the file in the hands of the reader, which is null for a file that is no mbox.
    std::unique_ptr<QIODevice> mDevice;
    std::unique_ptr<MboxReader> mReader;
    int mNumber = 0;
    bool mFound = false;
};

} // namespace tarvomime::tool
