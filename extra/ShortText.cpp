// SPDX-License-Identifier: MIT
#include "extra/ShortText.h"

#include "extra/CharsetText.h"
#include "extra/Utf8.h"

namespace tarvomime {

QString ShortTextReader::read(const QByteArray& bytes) const
{
    if (isUtf8({bytes.constData(), static_cast<std::size_t>(bytes.size())}))
        return QString::fromUtf8(bytes);
    return textFromCharset(bytes, mFallback).valueOr(QString::fromLatin1(bytes));
}

bool ShortTextReader::isReadable(const QByteArray& label)
{
    const auto known = mReadable.constFind(label);
    if (known != mReadable.constEnd())
        return *known;
    if (mReadable.size() >= kMostLabels)
        return false;
    return *mReadable.insert(label, isReadableCharset(label));
}

QString ShortTextReader::read(const QByteArray& bytes, const QByteArray& label)
{
    if (label.isEmpty() || !isReadable(label))
        return read(bytes);
    const Result<ReadText> declared = readDeclaredText(bytes, label);
    return declared ? declared->text : read(bytes);
}

} // namespace tarvomime
