// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Result.h"
#include "extra/TarvomimeExtraExport.h"

#include <QtGlobal>
#include <memory>

class EMAIL_BasicMsg;
class QIODevice;
class QTemporaryFile;

namespace tarvomime {

/// Reads messages out of any device: a socket, a process, a compressed file, a resource.
///
/// What is longer than `inMemory` is spooled to a temporary file, so that bodies need no memory;
/// the file is removed together with this object, which must outlive the message.
class TARVOMIME_EXTRA_EXPORT MessageInput
{
public:
    MessageInput();
    MessageInput(MessageInput&&) noexcept;
    MessageInput& operator=(MessageInput&&) noexcept;
    ~MessageInput();

    /// Reads all that `device` still has into `message`, which is a new one. A QFile at its start,
    /// open to reading and writing, is parsed at its place, without a copy. A device that delivers
    /// slowly is waited for, 30 seconds at most for each block.
    ///
    /// Fails where there is nothing to read, reading or spooling fails, or the message has 2 GiB or
    /// more.
    Result<void> read(QIODevice& device, EMAIL_BasicMsg& message, qint64 inMemory = 1 << 20);

private:
    std::unique_ptr<QTemporaryFile> mSpool;
};

} // namespace tarvomime
