// SPDX-License-Identifier: MIT
// The body of a part: in memory or in a file, always as it travels.
#include "utility/EMAIL_MultiPart.h"
#include "utility/RefusedBody.h"
#include "utility/codec/Charset.h"
#include "utility/codec/DecodedBody.h"
#include "utility/codec/TransferEncoding.h"

using namespace tarvomime;

namespace {

BodyBytes bytesInMemory(const QByteArray& bytes)
{
    return BodyBytes(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

BodyBytes storedBytes(const EMAIL_MultiPart& part)
{
    if (part.mInMemory)
        return bytesInMemory(part.mBodyData);
    return BodyBytes(part.mBodyFile, part.mBodyOffset, part.mBodyLength);
}

} // namespace

void EMAIL_MultiPart::setBody(const QByteArray& data, bool isEncoded)
{
    if (data.size() > QCString::longestLength) {
        refuseBody(*this);
        return;
    }
    mInMemory = true;
    mEncoded = true;
    mBodyLength = static_cast<int>(data.size());
    if (mBodyLength == 0)
        return;
    if (isEncoded) {
        mBodyData = data;
        return;
    }
    if (mCTE == CTE_UNKNOWN)
        mCTE = guessTransferEncoding(data);
    encodeTransfer(data, mBodyData, mCTE);
}

// 1. UTF-7 is read but never written: a text that Latin-1 can hold leaves a part in it without
//    bytes.
void EMAIL_MultiPart::setBody(const QString& text, bool useCharset)
{
    if (text.isEmpty()) {
        setBody(QByteArray(), true);
        return;
    }
    QCString bytes;
    if (useCharset) {
        if (!canEncodeByCharset(text, mCharset))
            mCharset = CHARSET_UTF_8;
        encodeWithCharset(bytes, text, mCharset);
    } else if (text.size() <= QCString::longestLength) {
        bytes = QCString::fromBytes(text.toLatin1());
    }
    const bool isNeverWritten = useCharset && mCharset == CHARSET_UTF_7;
    if (bytes.isEmpty() && !isNeverWritten) {
        refuseBody(*this);
        return;
    }
    const int end = bytes.find('\0');
    if (end >= 0)
        bytes.truncate(end);
    setBody(QByteArray(bytes), false);
}

int EMAIL_MultiPart::setBodyInfo(const QString& path, int offset, int length, bool isEncoded)
{
    mBodyFile = path;
    mInMemory = false;
    mBodyOffset = offset;
    mBodyLength = length;
    mEncoded = isEncoded;
    if (isEncoded || mCTE != CTE_UNKNOWN)
        return 0;
    const auto guess = guessTransferEncoding(BodyBytes(path, offset, length));
    mCTE = guess.value_or(CTE_UNKNOWN);
    return guess ? 0 : -1;
}

void EMAIL_MultiPart::getBodyInfo(QString& path, int& offset, int& length, bool& isEncoded) const
{
    path = mBodyFile;
    offset = mBodyOffset;
    length = mBodyLength;
    isEncoded = mEncoded;
}

// 1. Only base64 is reckoned back: how much quoted-printable shrinks cannot be told without reading
//    it.
int EMAIL_MultiPart::getSize() const
{
    if (!mEncoded || mCTE != CTE_BASE64)
        return mBodyLength;
    return static_cast<int>((qint64(mBodyLength) + 3) / 4 * 3);
}

QByteArray EMAIL_MultiPart::getBody() const
{
    if (!mInMemory || mBodyData.isEmpty())
        return {};
    return decodeTransfer(bytesInMemory(mBodyData), mCTE).value_or(QByteArray());
}

int EMAIL_MultiPart::getBody(QFile* out, const ProgressCallback& progress) const
{
    if (out == nullptr)
        return -1;
    const bool isCoded = mInMemory || mEncoded;
    return writeDecoded(storedBytes(*this), isCoded ? mCTE : int(CTE_UNKNOWN), out, progress);
}

// 1. A file that is not encoded is decoded all the same when an encoding is set.
int EMAIL_MultiPart::getTextBody(QString& text, int defaultCharset) const
{
    return decodeText(storedBytes(*this), mCTE, mCharset, defaultCharset, text);
}
