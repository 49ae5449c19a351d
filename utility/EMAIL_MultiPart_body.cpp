// SPDX-License-Identifier: MIT
// The body of a part: in memory or in a file, always as it travels.
#include "utility/EMAIL_MultiPart.h"
#include "utility/file/BlockWriter.h"
#include "utility/file/MappedFile.h"

#include <limits>

using namespace tarvomime;

namespace {

/// The decoded bytes of an encoded body.
QByteArray decoded(const QByteArray& body, int encoding)
{
    QByteArray bytes;
    EMAIL_Util::decFromCTE(QCString::fromBytes(body), bytes, encoding);
    return bytes;
}

/// Sizes are `int` in the interface; a body that is longer counts as empty.
bool isTooLong(const QByteArray& data)
{
    return data.size() > std::numeric_limits<int>::max();
}

} // namespace

void EMAIL_MultiPart::setBody(const QByteArray& data, bool isEncoded)
{
    mInMemory = true;
    mEncoded = true;
    mBodyLength = isTooLong(data) ? 0 : static_cast<int>(data.size());
    if (mBodyLength == 0)
        return;
    if (isEncoded) {
        mBodyData = data;
        return;
    }
    if (mCTE == CTE_UNKNOWN)
        mCTE = EMAIL_Util::guessRightCTE(data);
    EMAIL_Util::encWithCTE(data, mBodyData, mCTE);
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
        if (!EMAIL_Util::canEncodeByCharset(text, mCharset))
            mCharset = CHARSET_UTF_8;
        EMAIL_Util::encWithCharset(bytes, text, mCharset);
    } else {
        bytes = text.toLatin1();
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
    const MappedFile file(path);
    if (!file.holds(offset, length))
        return -1;
    mCTE = EMAIL_Util::guessRightCTE(file.data() + offset, length);
    return 0;
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
    return mInMemory && !mBodyData.isEmpty() ? decoded(mBodyData, mCTE) : QByteArray();
}

int EMAIL_MultiPart::getBody(QFile* out, const ProgressCallback& progress) const
{
    if (out == nullptr)
        return -1;
    if (mInMemory) {
        const QByteArray bytes = getBody();
        return writeBlock(out, bytes.constData(), static_cast<int>(bytes.size()));
    }
    const MappedFile file(mBodyFile);
    if (!file.holds(mBodyOffset, mBodyLength))
        return -1;
    return EMAIL_Util::decFromCTE(file.data() + mBodyOffset, mBodyLength, out,
                                  mEncoded ? mCTE : int(CTE_UNKNOWN), progress);
}

// 1. A file that is not encoded is decoded all the same when an encoding is set.
int EMAIL_MultiPart::getTextBody(QString& text, int defaultCharset) const
{
    if (mInMemory && mBodyData.isEmpty())
        return 0;
    QByteArray bytes;
    if (mInMemory) {
        bytes = decoded(mBodyData, mCTE);
    } else {
        const MappedFile file(mBodyFile);
        if (!file.holds(mBodyOffset, mBodyLength))
            return -1;
        bytes = decoded(QByteArray::fromRawData(file.data() + mBodyOffset, mBodyLength), mCTE);
    }
    QString result;
    EMAIL_Util::decFromCharset(bytes, result,
                               mCharset == CHARSET_UNKNOWN ? defaultCharset : mCharset);
    text = result;
    return 0;
}
