// SPDX-License-Identifier: MIT
// The header's getters and setters, one for each standard field.
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/codec/TransferEncoding.h"
#include "utility/header/FieldNames.h"
#include "utility/header/TypedField.h"
#include "utility/text/Tokens.h"

namespace {

using namespace tarvomime;

constexpr unsigned int kDefaultPriority = 3;

QCString bodyOf(const EMAIL_Header& header, const QCString& name)
{
    const EMAIL_Field* field = header.getField(name);
    return field == nullptr ? QCString::fromLiteral("") : field->mBody;
}

void setParsedBody(EMAIL_Header& header, const QCString& name, const QCString& value)
{
    EMAIL_Field* field = header.field(name);
    field->mBody = value;
    field->parse();
}

void setBody(EMAIL_Header& header, const QCString& name, const QCString& value)
{
    header.field(name)->mBody = value;
}

} // namespace

EMAIL_AddrList* EMAIL_Header::getTo() const
{
    return parsedAs<EMAIL_AddrList>(getField(FieldName::to()));
}

EMAIL_AddrList* EMAIL_Header::getCc() const
{
    return parsedAs<EMAIL_AddrList>(getField(FieldName::cc()));
}

EMAIL_AddrList* EMAIL_Header::getBcc() const
{
    return parsedAs<EMAIL_AddrList>(getField(FieldName::bcc()));
}

EMAIL_AddrList* EMAIL_Header::getFrom() const
{
    return parsedAs<EMAIL_AddrList>(getField(FieldName::from()));
}

EMAIL_AddrList* EMAIL_Header::getSender() const
{
    return parsedAs<EMAIL_AddrList>(getField(FieldName::sender()));
}

EMAIL_AddrList* EMAIL_Header::getReplyTo() const
{
    return parsedAs<EMAIL_AddrList>(getField(FieldName::replyTo()));
}

EMAIL_DateTime* EMAIL_Header::getDate() const
{
    return parsedAs<EMAIL_DateTime>(getField(FieldName::date()));
}

EMAIL_ContentType* EMAIL_Header::getContentType() const
{
    return parsedAs<EMAIL_ContentType>(getField(FieldName::contentType()));
}

EMAIL_DispositionType* EMAIL_Header::getContentDisposition() const
{
    return parsedAs<EMAIL_DispositionType>(getField(FieldName::contentDisposition()));
}

EMAIL_ContentType* EMAIL_Header::contentType()
{
    if (EMAIL_ContentType* existing = getContentType())
        return existing;
    typedField<EMAIL_ContentType>(*this, FieldName::contentType());
    return getContentType();
}

EMAIL_DispositionType* EMAIL_Header::contentDisposition()
{
    return typedField<EMAIL_DispositionType>(*this, FieldName::contentDisposition());
}

QCString EMAIL_Header::getSubject() const
{
    return bodyOf(*this, FieldName::subject());
}

QCString EMAIL_Header::getXMailer() const
{
    return bodyOf(*this, FieldName::xMailer());
}

QCString EMAIL_Header::getContentId() const
{
    return bodyOf(*this, FieldName::contentId());
}

QCString EMAIL_Header::getContentDescription() const
{
    return bodyOf(*this, FieldName::contentDescription());
}

QCString EMAIL_Header::getContentLocation() const
{
    return bodyOf(*this, FieldName::contentLocation());
}

QCString EMAIL_Header::getMimeVersion() const
{
    return bodyOf(*this, FieldName::mimeVersion());
}

void EMAIL_Header::setTo(const QCString& value)
{
    setParsedBody(*this, FieldName::to(), value);
}

void EMAIL_Header::setCc(const QCString& value)
{
    setParsedBody(*this, FieldName::cc(), value);
}

void EMAIL_Header::setBcc(const QCString& value)
{
    setParsedBody(*this, FieldName::bcc(), value);
}

void EMAIL_Header::setFrom(const QCString& value)
{
    setParsedBody(*this, FieldName::from(), value);
}

void EMAIL_Header::setSender(const QCString& value)
{
    setParsedBody(*this, FieldName::sender(), value);
}

void EMAIL_Header::setReplyTo(const QCString& value)
{
    setParsedBody(*this, FieldName::replyTo(), value);
}

void EMAIL_Header::setContentDescription(const QCString& value)
{
    setParsedBody(*this, FieldName::contentDescription(), value);
}

void EMAIL_Header::setSubject(const QCString& value)
{
    setBody(*this, FieldName::subject(), value);
}

void EMAIL_Header::setXMailer(const QCString& value)
{
    setBody(*this, FieldName::xMailer(), value);
}

void EMAIL_Header::setXPriority(const QCString& value)
{
    setBody(*this, FieldName::xPriority(), value);
}

void EMAIL_Header::setContentId(const QCString& value)
{
    setBody(*this, FieldName::contentId(), value);
}

void EMAIL_Header::setMimeVersion(const QCString& value)
{
    setBody(*this, FieldName::mimeVersion(), value);
}

void EMAIL_Header::setContentLocation(const QCString& value)
{
    setBody(*this, FieldName::contentLocation(), value);
}

void EMAIL_Header::setDate(unsigned long t)
{
    typedField<EMAIL_DateTime>(*this, FieldName::date())->setTime(t);
}

void EMAIL_Header::setCte(int cte)
{
    setBody(*this, FieldName::contentTransferEncoding(), transferEncodingName(cte));
}

int EMAIL_Header::getCte() const
{
    const EMAIL_Field* cte = getField(FieldName::contentTransferEncoding());
    return cte == nullptr ? CTE_7BIT : transferEncodingFromName(cte->mBody);
}

unsigned int EMAIL_Header::getXPriority() const
{
    QCString priority = bodyOf(*this, FieldName::xPriority());
    const int comment = priority.find('(');
    if (comment > 0 && priority.find(')', comment) > 0)
        priority = priority.left(comment);
    bool ok = false;
    const unsigned int value = priority.toUInt(&ok);
    return ok ? value : kDefaultPriority;
}

QCString EMAIL_Header::getMethod()
{
    static const QCString key = QCString::fromLiteral("method");
    return withoutQuotes(contentType()->mParams.value(key));
}

void EMAIL_Header::setMethod(const QCString& method)
{
    // A plain field that is replaced may be the one that holds it.
    const QCString kept = method;
    contentType()->setMethod(kept);
}
