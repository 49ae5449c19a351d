// SPDX-License-Identifier: MIT
// The body as text, bytes or a range of a file, and the reply-style copy.
#include "utility/EMAIL_BasicMsg.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"
#include "utility/codec/Charset.h"
#include "utility/codec/DecodedBody.h"
#include "utility/codec/TransferEncoding.h"
#include "utility/header/FieldNames.h"
#include "utility/text/Joined.h"
#include "utility/tree/StoredBody.h"

#include <algorithm>
#include <cstring>

using namespace tarvomime;

namespace {

// NUL counts as well: in a 7bit body it would end the text.
bool needsCharset(const QString& text)
{
    return std::any_of(text.cbegin(), text.cend(),
                       [](QChar c) { return c.unicode() == 0 || c.unicode() > 127; });
}

// What could not be encoded is not lost in silence: the assembly fails.
QCString textOf(const QByteArray& bytes)
{
    return bytes.isEmpty() ? refusedText() : QCString::fromBytes(bytes);
}

using Getter = QString (EMAIL_BasicMsg::*)(int) const;
using Setter = void (EMAIL_BasicMsg::*)(const QString&);

void copyIfAny(const EMAIL_BasicMsg& from, EMAIL_BasicMsg& to, Getter get, Setter set, int charset)
{
    const QString value = (from.*get)(charset);
    if (!value.isEmpty())
        (to.*set)(value);
}

} // namespace

void EMAIL_BasicMsg::setBody(const QString& text, bool encode)
{
    if (mMessage == nullptr)
        return;
    if (text.size() > QCString::longestLength) {
        mMessage->mBody->setMessage(refusedText());
        return;
    }
    if (encode && needsCharset(text)) {
        setEncodedText(text);
        return;
    }
    if (encode && !text.isEmpty()) {
        getHeader()->removeField(FieldName::contentTransferEncoding());
        setCharset(CHARSET_US_ASCII);
    }
    mMessage->mBody->setMessage(QCString::fromBytes(text.toLatin1()));
}

// 1. UTF-7 is read but never written: a message in it keeps its old body when the text is Latin-1.
void EMAIL_BasicMsg::setEncodedText(const QString& text)
{
    int charset = getCharset();
    if (charset == CHARSET_US_ASCII)
        charset = CHARSET_ISO_8859_1;
    if (!canEncodeByCharset(text, charset))
        charset = CHARSET_UTF_8;
    setCharset(charset);
    QCString bytes;
    encodeWithCharset(bytes, text, charset);
    if (getType() == TYPE_UNKNOWN) {
        setType(TYPE_TEXT);
        setSubType(SUBTYPE_PLAIN);
    }
    if (bytes.isEmpty() && charset != CHARSET_UTF_7)
        mMessage->mBody->setMessage(refusedText());
    setBody(QByteArray(bytes));
}

void EMAIL_BasicMsg::setBody(const QByteArray& data)
{
    // Asking for the type would parse the field, which is then written in its normalised form.
    if (mMessage == nullptr || data.isEmpty())
        return;
    const int type = getType();
    if (type == TYPE_MULTIPART || type == TYPE_MESSAGE)
        return;
    if (type == TYPE_UNKNOWN) {
        setType(TYPE_APPLICATION);
        setSubType(SUBTYPE_OCTET_STREAM);
    }
    if (getCTE() == CTE_7BIT)
        setCTE(guessTransferEncoding(data));
    QByteArray encoded;
    encodeTransfer(data, encoded, getCTE());
    mMessage->mBody->setMessage(textOf(encoded));
}

QString EMAIL_BasicMsg::decodeBodyText(const QCString& text, int charset) const
{
    QString decoded;
    decodeText(BodyBytes(text.view()), getCTE(), getCharset(), charset, decoded);
    return decoded;
}

QString EMAIL_BasicMsg::getBody(int charset) const
{
    if (mMessage == nullptr || !isBodyInMemory())
        return {};
    return decodeBodyText(mMessage->mBody->getMessage(), charset);
}

int EMAIL_BasicMsg::getBody(QString& out, int charset) const
{
    if (!isBodyInMemory())
        return decodeText(storedBytes(*mMessage->mBody), getCTE(), getCharset(), charset, out);
    out = getBody(charset);
    return 0;
}

int EMAIL_BasicMsg::getBody(QFile* file, const ProgressCallback& cb) const
{
    if (file == nullptr)
        return -1;
    if (!isBodyInMemory())
        return writeBodyFromFile(file, cb);
    const QCString text = mMessage == nullptr ? QCString() : mMessage->mBody->getMessage();
    return writeDecoded(BodyBytes(text.view()), getCTE(), file, cb);
}

int EMAIL_BasicMsg::writeBodyFromFile(QFile* file, const ProgressCallback& cb) const
{
    return writeDecoded(storedBytes(*mMessage->mBody), getCTE(), file, cb) == 0 ? 0 : -1;
}

bool EMAIL_BasicMsg::isBodyInMemory() const
{
    return mMessage == nullptr || mMessage->mBody->isInMemory();
}

void EMAIL_BasicMsg::getBodyInfo(QString& path, int& offset, int& length, bool& encoded) const
{
    if (mMessage != nullptr)
        mMessage->mBody->getBodyInfo(path, offset, length, encoded);
}

void EMAIL_BasicMsg::setBodyInfo(const QString& path, int offset, int length, bool encoded)
{
    if (mMessage != nullptr)
        mMessage->mBody->setBodyInfo(path, offset, length, encoded);
}

QCString EMAIL_BasicMsg::newMessage(const char* raw, const QString& body, int charset)
{
    if (raw == nullptr)
        return {};
    // Measured before it is copied: a string would copy any length.
    const std::size_t length = std::strlen(raw);
    if (length > std::size_t{QCString::longestLength})
        return {};
    const EMAIL_BasicMsg source(QString::fromLatin1(raw, static_cast<int>(length)));
    EMAIL_BasicMsg copy;
    copyIfAny(source, copy, &EMAIL_BasicMsg::getFrom, &EMAIL_BasicMsg::setFrom, charset);
    copyIfAny(source, copy, &EMAIL_BasicMsg::getTo, &EMAIL_BasicMsg::setTo, charset);
    copyIfAny(source, copy, &EMAIL_BasicMsg::getCc, &EMAIL_BasicMsg::setCc, charset);
    copyIfAny(source, copy, &EMAIL_BasicMsg::getBcc, &EMAIL_BasicMsg::setBcc, charset);
    copy.setDate(source.getDate());
    copy.setDefaultFileds();
    copyIfAny(source, copy, &EMAIL_BasicMsg::getSubject, &EMAIL_BasicMsg::setSubject, charset);
    if (!body.isEmpty())
        copy.setBody(body, true);
    return copy.assemble();
}
