// SPDX-License-Identifier: MIT
#include "extra/MboxReader.h"

#include "types/Ascii.h"

#include <QIODevice>
#include <algorithm>
#include <cstring>
#include <limits>

namespace tarvomime {

namespace {

constexpr qint64 kBlockSize = 1 << 20;
constexpr qsizetype kLongestStart = 1000;
constexpr std::string_view kSeparator = "From ";
constexpr std::string_view kLengthField = "content-length:";

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

bool holdsTimeOfDay(std::string_view line)
{
    for (std::size_t colon = line.find(':'); colon != line.npos;
         colon = line.find(':', colon + 1)) {
        if (colon >= 2 && colon + 2 < line.size() && isDigit(line[colon - 2]) &&
            isDigit(line[colon - 1]) && isDigit(line[colon + 1]) && isDigit(line[colon + 2]))
            return true;
    }
    return false;
}

bool isSeparator(std::string_view line)
{
    return line.substr(0, kSeparator.size()) == kSeparator && holdsTimeOfDay(line);
}

std::string_view withoutCr(std::string_view line)
{
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

// Whether one ">" was put in front of this line.
bool isQuoted(std::string_view line, MboxQuoting quoting)
{
    const std::size_t marks = std::min(line.find_first_not_of('>'), line.size());
    const bool enough = quoting == MboxQuoting::FromLines ? marks == 1 : marks >= 1;
    return enough && line.compare(marks, kSeparator.size(), kSeparator) == 0;
}

// Where the next quoted line begins; behind the end where there is none.
std::size_t quotedLine(std::string_view bytes, std::size_t from, MboxQuoting quoting)
{
    if (quoting == MboxQuoting::None)
        return bytes.npos;
    std::size_t at = bytes.find('>', from);
    while (at < bytes.size()) {
        const bool startsLine = at == 0 || bytes[at - 1] == '\n';
        if (startsLine && isQuoted(bytes.substr(at), quoting))
            return at;
        at = bytes.find('>', at + 1);
    }
    return at;
}

} // namespace

MboxReader::MboxReader(QIODevice& device, bool believeLengths)
    : mDevice(device), mBelieveLengths(believeLengths && !device.isSequential())
{
    // Offsets count from where the device stands.
    mBlockOffset = device.isSequential() ? 0 : device.pos();
    mFirst = mBlockOffset;
}

bool MboxReader::fill()
{
    mBlockOffset += mBlock.size();
    mAt = 0;
    mBlock.resize(int(kBlockSize));
    const qint64 count = mDevice.read(mBlock.data(), kBlockSize);
    if (count < 0)
        mProblem = mDevice.errorString();
    mBlock.truncate(int(std::max<qint64>(count, 0)));
    return count > 0;
}

bool MboxReader::takeLine(Line& line)
{
    if (mAt >= mBlock.size() && !fill())
        return false;
    const char* start = mBlock.constData() + mAt;
    const auto room = static_cast<std::size_t>(mBlock.size() - mAt);
    const auto* end = static_cast<const char*>(std::memchr(start, '\n', room));
    if (end == nullptr)
        return takeBrokenLine(line);
    line.offset = mBlockOffset + mAt;
    line.start = withoutCr({start, static_cast<std::size_t>(end - start)});
    mAt += end - start + 1;
    line.end = mBlockOffset + mAt;
    return true;
}

// A line that goes on in the next block, or ends without a line end.
bool MboxReader::takeBrokenLine(Line& line)
{
    line.offset = mBlockOffset + mAt;
    mLineStart.clear();
    bool complete = false;
    while (!complete && (mAt < mBlock.size() || fill())) {
        const char* start = mBlock.constData() + mAt;
        const auto room = static_cast<std::size_t>(mBlock.size() - mAt);
        const auto* end = static_cast<const char*>(std::memchr(start, '\n', room));
        const qsizetype length = end == nullptr ? qsizetype(room) : end - start;
        mLineStart.append(start, int(std::min(length, kLongestStart - mLineStart.size())));
        complete = end != nullptr;
        mAt += length + (complete ? 1 : 0);
    }
    line.start = withoutCr(viewOf(mLineStart));
    line.end = mBlockOffset + mAt;
    return true;
}

bool MboxReader::begin()
{
    Line line;
    mBegun = true;
    if (!takeLine(line)) {
        mAtEnd = true;
        return false;
    }
    mIsMbox = isSeparator(line.start);
    mNext = line.offset;
    if (mIsMbox) {
        mSeparator = QByteArray(line.start.data(), int(line.start.size()));
        mNext = line.end;
    }
    return true;
}

bool MboxReader::isMbox()
{
    if (!mBegun)
        begin();
    return mIsMbox;
}

void MboxReader::noticeLength(const Line& line)
{
    if (line.start.size() <= kLengthField.size() ||
        !equalIgnoringCase(line.start.substr(0, kLengthField.size()), kLengthField))
        return;
    const std::string_view value = trimmed(line.start.substr(kLengthField.size()));
    bool isNumber = false;
    const qint64 length = QByteArray(value.data(), int(value.size())).toLongLong(&isNumber);
    mBodyLength =
        isNumber && length >= 0 && length < std::numeric_limits<qint64>::max() / 2 ? length : -1;
}

// Whether a separator, or nothing, follows the bytes up to `end` and an empty line.
bool MboxReader::leadsToSeparator(qint64 end)
{
    const qint64 size = mDevice.size();
    const qint64 position = mDevice.pos();
    if (end > size || !mDevice.seek(end))
        return false;
    const QByteArray follows = mDevice.read(kLongestStart);
    mDevice.seek(position);
    std::string_view rest = viewOf(follows);
    rest.remove_prefix(std::min(rest.find_first_not_of("\r\n"), rest.size()));
    return rest.empty() ? end + follows.size() >= size
                        : isSeparator(withoutCr(rest.substr(0, rest.find('\n'))));
}

void MboxReader::skipTo(qint64 offset)
{
    if (offset <= mBlockOffset + mBlock.size()) {
        mAt = qsizetype(std::max(offset - mBlockOffset, qint64(mAt)));
        return;
    }
    mDevice.seek(offset);
    mBlock.clear();
    mBlockOffset = offset;
    mAt = 0;
}

bool MboxReader::next(MboxMessage& message)
{
    if ((!mBegun && !begin()) || mAtEnd)
        return false;
    message = {mNext, 0, mSeparator};
    qint64 end = mBlockOffset + mAt;
    bool afterEmpty = false;
    bool inHeader = mBelieveLengths && mIsMbox;
    mBodyLength = -1;
    qint64 emptyStart = end;
    Line line;
    while (takeLine(line)) {
        if (mIsMbox && afterEmpty && isSeparator(line.start)) {
            mSeparator = QByteArray(line.start.data(), int(line.start.size()));
            mNext = line.end;
            message.length = emptyStart - message.offset;
            return true;
        }
        end = line.end;
        afterEmpty = line.isEmpty();
        emptyStart = afterEmpty ? line.offset : end;
        if (inHeader && !afterEmpty)
            noticeLength(line);
        if (inHeader && afterEmpty) {
            inHeader = false;
            // The line end in front of the next separator was never counted.
            if (mBodyLength > 0 && leadsToSeparator(line.end + mBodyLength))
                skipTo(line.end + mBodyLength);
        }
    }
    mAtEnd = true;
    message.length = (mIsMbox && afterEmpty ? emptyStart : end) - message.offset;
    return mProblem.isEmpty();
}

QByteArray unquotedMboxMessage(const QByteArray& stored, MboxQuoting quoting)
{
    const std::string_view bytes = viewOf(stored);
    QByteArray restored;
    std::size_t done = 0;
    for (std::size_t at = quotedLine(bytes, 0, quoting); at < bytes.size();
         at = quotedLine(bytes, done, quoting)) {
        if (done == 0)
            restored.reserve(stored.size());
        restored.append(bytes.data() + done, int(at - done));
        done = at + 1;
    }
    if (done == 0)
        return stored;
    return restored.append(bytes.data() + done, int(bytes.size() - done));
}

Result<QByteArray> readMboxMessage(QIODevice& device, const MboxMessage& message,
                                   MboxQuoting quoting)
{
    if (message.length > std::numeric_limits<int>::max() - 64)
        return Failure{QStringLiteral("the message is too large (2 GiB or more)")};
    if (!device.seek(message.offset))
        return Failure{device.errorString()};
    const QByteArray stored = device.read(message.length);
    if (stored.size() != message.length)
        return Failure{QStringLiteral("the file was cut short")};
    return unquotedMboxMessage(stored, quoting);
}

} // namespace tarvomime
