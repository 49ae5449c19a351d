// SPDX-License-Identifier: MIT
// Addresses, subject, date, priority and Content-Type: Unicode values against encoded fields.
#include "types/Ascii.h"
#include "utility/EMAIL_BasicMsg.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Header.h"
#include "utility/codec/EncodedWordDecoder.h"
#include "utility/codec/EncodedWordEncoder.h"
#include "utility/header/EmptyHeader.h"
#include "utility/header/FieldNames.h"
#include "utility/header/TypedField.h"
#include "utility/text/Latin1.h"
#include "utility/time/LocalTime.h"

#include <algorithm>

using namespace tarvomime;

namespace {

using Encoder = void (*)(const QString&, int, QCString&);
using Setter = void (EMAIL_Header::*)(const QCString&);

constexpr int kPriorityHigh = 1;
constexpr int kPriorityNormal = 3;
constexpr int kPriorityLow = 5;

QString decoded(const QCString& value, int charset)
{
    QString text;
    decodeWords(value.view(), text, charset);
    return text;
}

// The stored body as a whole: a typed access would parse the field, and a parsed field is written
// in its normalised form.
QString decodedField(const EMAIL_Header* header, const QCString& name, int charset)
{
    const EMAIL_Field* field = orEmpty(header).getField(name);
    return field == nullptr ? QString() : decoded(field->mBody, charset);
}

void setEncoded(EMAIL_Header* header, Setter setter, Encoder encode, const QString& value,
                int charset)
{
    if (header == nullptr)
        return;
    QCString wire;
    encode(value, charset, wire);
    (header->*setter)(wire);
}

using Fields = QPtrList<EMAIL_Field>;

bool isContentType(const EMAIL_Field* field)
{
    return field != nullptr &&
           equalIgnoringCase(field->mName.view(), FieldName::contentType().view());
}

// The first Content-Type of `fields` from `start` on and before `end`; `end` when there is none.
int findContentType(const Fields& fields, int start, int end)
{
    EMAIL_Field* const* const items = fields.begin();
    return static_cast<int>(std::find_if(items + start, items + end, isContentType) - items);
}

// A loop over the parts asks for the same field again and again, and a header is as long as its
// sender likes. So a field this far back is first looked for where it was found last. Applications
// change the list as they please: the front of it, where every sane header has the field, and as
// many fields before that place are looked at each time.
constexpr int kAlwaysExamined = 256;

int findContentType(const Fields& fields, int lastPosition)
{
    const int front = std::min(fields.count(), kAlwaysExamined);
    const int found = findContentType(fields, 0, front);
    if (found < front || front == fields.count())
        return found;
    const int back = std::max(front, lastPosition - kAlwaysExamined);
    if (lastPosition >= front && isContentType(fields.at(lastPosition)))
        return findContentType(fields, back, lastPosition);
    return findContentType(fields, front, fields.count());
}

} // namespace

QString EMAIL_BasicMsg::getFrom(int charset) const
{
    return decodedField(getHeader(), FieldName::from(), charset);
}

void EMAIL_BasicMsg::setFrom(const QString& addresses)
{
    setEncoded(getHeader(), &EMAIL_Header::setFrom, encodeAddresses, addresses, mCharset);
}

QString EMAIL_BasicMsg::getTo(int charset) const
{
    return decodedField(getHeader(), FieldName::to(), charset);
}

void EMAIL_BasicMsg::setTo(const QString& addresses)
{
    setEncoded(getHeader(), &EMAIL_Header::setTo, encodeAddresses, addresses, mCharset);
}

QString EMAIL_BasicMsg::getCc(int charset) const
{
    return decodedField(getHeader(), FieldName::cc(), charset);
}

void EMAIL_BasicMsg::setCc(const QString& addresses)
{
    setEncoded(getHeader(), &EMAIL_Header::setCc, encodeAddresses, addresses, mCharset);
}

QString EMAIL_BasicMsg::getBcc(int charset) const
{
    return decodedField(getHeader(), FieldName::bcc(), charset);
}

void EMAIL_BasicMsg::setBcc(const QString& addresses)
{
    setEncoded(getHeader(), &EMAIL_Header::setBcc, encodeAddresses, addresses, mCharset);
}

QString EMAIL_BasicMsg::getReplyTo(int charset) const
{
    return decodedField(getHeader(), FieldName::replyTo(), charset);
}

// 1. The encoder of whole texts, unlike every other address field: stored mail is written this way.
void EMAIL_BasicMsg::setReplyTo(const QString& addresses)
{
    setEncoded(getHeader(), &EMAIL_Header::setReplyTo, encodeWords, addresses, mCharset);
}

QString EMAIL_BasicMsg::getSender() const
{
    return decodedField(getHeader(), FieldName::sender(), CHARSET_UNKNOWN);
}

void EMAIL_BasicMsg::setSender(const QString& address)
{
    setEncoded(getHeader(), &EMAIL_Header::setSender, encodeAddresses, address, mCharset);
}

QString EMAIL_BasicMsg::getSubject(int charset) const
{
    return decodedField(getHeader(), FieldName::subject(), charset);
}

void EMAIL_BasicMsg::setSubject(const QString& subject)
{
    setEncoded(getHeader(), &EMAIL_Header::setSubject, encodeWords, subject, mCharset);
}

QString EMAIL_BasicMsg::getXMailer() const
{
    return fromLatin1(orEmpty(getHeader()).getXMailer());
}

void EMAIL_BasicMsg::setXMailer(const QString& value)
{
    if (EMAIL_Header* header = getHeader())
        header->setXMailer(toLatin1(value));
}

QString EMAIL_BasicMsg::getMimeVersion() const
{
    return fromLatin1(orEmpty(getHeader()).getMimeVersion());
}

void EMAIL_BasicMsg::setMimeVersion(const QString& value)
{
    if (EMAIL_Header* header = getHeader())
        header->setMimeVersion(toLatin1(value));
}

unsigned long EMAIL_BasicMsg::getDate() const
{
    EMAIL_DateTime* date = orEmpty(getHeader()).getDate();
    return date == nullptr ? 0 : date->getTime();
}

void EMAIL_BasicMsg::setDate(unsigned long seconds)
{
    if (EMAIL_Header* header = getHeader())
        header->setDate(seconds);
}

QString EMAIL_BasicMsg::getRawDateStr() const
{
    const EMAIL_Field* date = orEmpty(getHeader()).getField(FieldName::date());
    return date == nullptr ? QString() : fromLatin1(date->mBody);
}

QString EMAIL_BasicMsg::getDateStr() const
{
    const bool isDated = orEmpty(getHeader()).getDate() != nullptr;
    return isDated ? displayTime(getDate()) : QString();
}

int EMAIL_BasicMsg::getXPriority() const
{
    const unsigned int priority = orEmpty(getHeader()).getXPriority();
    if (priority < kPriorityNormal)
        return kPriorityHigh;
    return priority < kPriorityLow ? kPriorityNormal : kPriorityLow;
}

void EMAIL_BasicMsg::setXPriority(int priority)
{
    EMAIL_Header* header = getHeader();
    if (header == nullptr)
        return;
    if (priority < kPriorityNormal)
        header->setXPriority("1");
    else
        header->setXPriority(priority < kPriorityLow ? "3" : "5");
}

EMAIL_ContentType* EMAIL_BasicMsg::contentTypeField() const
{
    const Fields& fields = orEmpty(getHeader()).mFields;
    mTypePosition = findContentType(fields, mTypePosition);
    return parsedAs<EMAIL_ContentType>(fields.at(mTypePosition));
}

int EMAIL_BasicMsg::getType() const
{
    const EMAIL_ContentType* type = contentTypeField();
    return type == nullptr ? TYPE_UNKNOWN : type->mTypeEnum;
}

void EMAIL_BasicMsg::setType(int type)
{
    if (EMAIL_Header* header = getHeader())
        header->contentType()->setType(type);
}

int EMAIL_BasicMsg::getSubType() const
{
    const EMAIL_ContentType* type = contentTypeField();
    return type == nullptr ? 0 : type->mSubTypeEnum;
}

void EMAIL_BasicMsg::setSubType(int subType)
{
    if (EMAIL_Header* header = getHeader())
        header->contentType()->setSubType(subType);
}

QString EMAIL_BasicMsg::getTypeStr() const
{
    const EMAIL_ContentType* type = contentTypeField();
    return type == nullptr ? QString() : fromLatin1(type->mType);
}

void EMAIL_BasicMsg::setTypeStr(const QString& name)
{
    if (EMAIL_Header* header = getHeader())
        header->contentType()->setTypeStr(toLatin1(name));
}

QString EMAIL_BasicMsg::getSubTypeStr() const
{
    const EMAIL_ContentType* type = contentTypeField();
    return type == nullptr ? QString() : fromLatin1(type->mSubType);
}

void EMAIL_BasicMsg::setSubTypeStr(const QString& name)
{
    if (EMAIL_Header* header = getHeader())
        header->contentType()->setSubTypeStr(toLatin1(name));
}

int EMAIL_BasicMsg::getCharset() const
{
    const EMAIL_ContentType* type = contentTypeField();
    return type == nullptr ? CHARSET_US_ASCII : type->getCharset();
}

void EMAIL_BasicMsg::setCharset(int charset)
{
    if (EMAIL_Header* header = getHeader())
        header->contentType()->setCharset(charset);
}

int EMAIL_BasicMsg::getCTE() const
{
    return orEmpty(getHeader()).getCte();
}

void EMAIL_BasicMsg::setCTE(int cte)
{
    if (EMAIL_Header* header = getHeader())
        header->setCte(cte);
}

QString EMAIL_BasicMsg::getMethod() const
{
    EMAIL_Header* header = getHeader();
    // Reading adds a missing field: the empty header that all share cannot serve.
    return fromLatin1(header == nullptr ? QCString("") : header->getMethod().lower());
}

void EMAIL_BasicMsg::setMethod(const QString& method)
{
    if (EMAIL_Header* header = getHeader())
        header->contentType()->setMethod(toLatin1(method));
}

QString EMAIL_BasicMsg::getFileName(int charset) const
{
    const EMAIL_ContentType* type = contentTypeField();
    QCString name;
    if (type != nullptr)
        type->getName(name);
    return name.isEmpty() ? QString() : decoded(name, charset);
}

QString EMAIL_BasicMsg::getName(int charset) const
{
    const EMAIL_DispositionType* disposition = orEmpty(getHeader()).getContentDisposition();
    const QCString name = disposition == nullptr ? QCString() : disposition->getFileName();
    return name.isEmpty() ? QString() : decoded(name, charset);
}
