// SPDX-License-Identifier: MIT
#include "tools/tarvomime/MailSource.h"

#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/Session.h"

#include <algorithm>
#include <cstring>

namespace tarvomime::tool {

namespace {

// A mapped file of any size; a QByteArray, and so a QBuffer, ends at 2 GiB with Qt 5.
class MappedDevice : public QIODevice
{
public:
    explicit MappedDevice(const InputFile& file) : mFile(file) { open(ReadOnly | Unbuffered); }

    qint64 size() const override { return mFile.size(); }
    bool seek(qint64 position) override
    {
        mAt = std::min(position, size());
        return QIODevice::seek(position);
    }

protected:
    qint64 readData(char* data, qint64 most) override
    {
        const qint64 count = std::min(most, size() - mAt);
        std::memcpy(data, mFile.data() + mAt, static_cast<std::size_t>(count));
        mAt += count;
        return count;
    }
    qint64 writeData(const char* /*data*/, qint64 /*length*/) override { return -1; }

private:
    const InputFile& mFile;
    qint64 mAt = 0;
};

} // namespace

std::string MailPlace::name() const
{
    return isInMbox() ? file->name() + ", message " + std::to_string(number) : file->name();
}

MailSource::MailSource(const MailInputs& inputs, Session& session)
    : mInputs(inputs), mSession(session), mFiles(findMailFiles(inputs.paths, session)),
      mHoldsSeveral(inputs.paths.size() > 1 || mFiles.size() > 1)
{
}

qint64 MailSource::totalSize() const
{
    qint64 total = 0;
    for (const MailFile& file : mFiles)
        total += file.size;
    return total;
}

bool MailSource::next(MailPlace& place)
{
    do {
        while (mFile && takeMessage(place)) {
            if (!isWanted(place))
                continue;
            mFound = true;
            if (place.length < kTooLong)
                return !mayStop();
            mSession.complain(place.name(), kTooLongProblem);
        }
        if (mFile && mInputs.isSelection() && !mFound)
            complainOfAbsence();
    } while (!mayStop() && openNext());
    return false;
}

bool MailSource::openNext()
{
    mFile.reset();
    mFound = false;
    mNumber = 0;
    while (!mFile && mNextFile < mFiles.size()) {
        auto file = std::make_shared<const InputFile>(mFiles[mNextFile++].path, Sizes::OrTooLong);
        if (file->isOpen())
            mFile = std::move(file);
        else
            mSession.complain(file->name(), file->problem());
    }
    if (!mFile)
        return false;
    mReader.reset();
    mDevice = std::make_unique<MappedDevice>(*mFile);
    mReader = std::make_unique<MboxReader>(*mDevice);
    if (mReader->isMbox())
        mHoldsSeveral = mHoldsSeveral || !mInputs.isSelection();
    else
        mReader.reset();
    return true;
}

bool MailSource::takeMessage(MailPlace& place)
{
    MboxMessage message;
    message.length = mFile->size();
    if (mReader ? !mReader->next(message) : mNumber > 0)
        return false;
    ++mNumber;
    place = {mFile, message.offset, message.length, mReader ? mNumber : 0};
    return true;
}

bool MailSource::isWanted(const MailPlace& place) const
{
    if (mInputs.number > 0)
        return mNumber == mInputs.number;
    const qint64 byte = mInputs.offset;
    return byte < 0 || (byte >= place.offset && byte < place.offset + place.length);
}

bool MailSource::mayStop() const
{
    return !mSession.isOutputOpen() || wasInterrupted();
}

void MailSource::complainOfAbsence()
{
    mSession.complain(mFile->name(),
                      mInputs.number > 0
                          ? "has no message " + std::to_string(mInputs.number)
                          : "has no message at byte " + std::to_string(mInputs.offset));
}

} // namespace tarvomime::tool
