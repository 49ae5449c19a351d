// SPDX-License-Identifier: MIT
#include "extra/MessageInput.h"

#include "utility/EMAIL_BasicMsg.h"
#include "utility/EMAIL_Message.h"

#include <QFile>
#include <QTemporaryFile>
#include <limits>

namespace tarvomime {

namespace {

constexpr qint64 kBlockSize = 1 << 20;
constexpr qint64 kTooLong = std::numeric_limits<int>::max() - 64;
constexpr int kPatience = 30000;

Failure tooLong()
{
    return {QStringLiteral("the message is too large (2 GiB or more)")};
}

// The next block; empty at the end or where reading failed.
QByteArray takeBlock(QIODevice& device, qint64 most)
{
    QByteArray block = device.read(most);
    while (block.isEmpty() && device.isSequential() && device.waitForReadyRead(kPatience))
        block = device.read(most);
    return block;
}

bool parsedAtItsPlace(QIODevice& device, EMAIL_BasicMsg& message)
{
    const auto* file = qobject_cast<QFile*>(&device);
    if (file == nullptr || file->isSequential() || file->pos() != 0 || file->fileName().isEmpty() ||
        (file->openMode() & QIODevice::WriteOnly) == 0)
        return false;
    QString path = file->fileName();
    return message.parse(path) == 0;
}

void parseBytes(const QByteArray& bytes, EMAIL_BasicMsg& message)
{
    message.mLength = static_cast<int>(bytes.size());
    message.mMessage->setMessage(QCString::fromBytes(bytes));
    message.mMessage->parse();
}

// Writes what was read already and all that follows.
Result<void> spool(const QByteArray& start, QIODevice& device, QTemporaryFile& file)
{
    qint64 length = 0;
    for (QByteArray block = start; !block.isEmpty(); block = takeBlock(device, kBlockSize)) {
        length += block.size();
        if (length >= kTooLong)
            return tooLong();
        if (file.write(block) != block.size())
            return Failure{file.errorString()};
    }
    if (!file.flush())
        return Failure{file.errorString()};
    return {};
}

} // namespace

MessageInput::MessageInput() = default;
MessageInput::MessageInput(MessageInput&&) noexcept = default;
MessageInput& MessageInput::operator=(MessageInput&&) noexcept = default;
MessageInput::~MessageInput() = default;

Result<void> MessageInput::read(QIODevice& device, EMAIL_BasicMsg& message, qint64 inMemory)
{
    if (!device.isReadable())
        return Failure{QStringLiteral("is not open for reading")};
    if (parsedAtItsPlace(device, message))
        return {};
    QByteArray start;
    QByteArray block = takeBlock(device, kBlockSize);
    while (!block.isEmpty() && start.size() + block.size() <= inMemory) {
        start += block;
        block = takeBlock(device, kBlockSize);
    }
    if (start.isEmpty() && block.isEmpty())
        return Failure{QStringLiteral("is empty")};
    if (block.isEmpty()) {
        parseBytes(start, message);
        return {};
    }
    start += block;
    mSpool = std::make_unique<QTemporaryFile>();
    if (!mSpool->open())
        return Failure{mSpool->errorString()};
    Result<void> written = spool(start, device, *mSpool);
    if (!written)
        return written;
    QString path = mSpool->fileName();
    if (message.parse(path) != 0)
        return Failure{QStringLiteral("the temporary file cannot be read")};
    return {};
}

} // namespace tarvomime
