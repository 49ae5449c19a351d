// SPDX-License-Identifier: MIT
// The private bookkeeping fields of the mail client: plain fields, found and written by name.
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/header/FieldNames.h"
#include "utility/header/TypedField.h"
#include "utility/text/Joined.h"

namespace {

using namespace tarvomime;

template <typename Number>
QCString decimal(Number number)
{
    QCString text;
    text.setNum(number);
    return text;
}

// The body of the first field of that name; `missing` when there is none.
QCString bodyOr(const QCString& missing, const EMAIL_Header& header, const QCString& name)
{
    const EMAIL_Field* field = header.getField(name);
    return field == nullptr ? missing : field->mBody;
}

void addNewField(EMAIL_Header& header, const QCString& name, const QCString& body)
{
    EMAIL_Field* field = header.createField(name);
    field->mBody = body;
    header.addField(field);
}

// The assembled line of the first field of that name; an empty text when there is none.
QCString assembledLine(const EMAIL_Header& header, const QCString& name)
{
    EMAIL_Field* field = header.getField(name);
    if (field == nullptr)
        return QCString::fromLiteral("");
    field->assemble();
    return field->mString;
}

// The field is not parsed before it is rewritten: parameters that nobody asked for so far go.
QCString plainTextContentType(EMAIL_Header& header)
{
    auto* contentType = typedField<EMAIL_ContentType>(header, FieldName::contentType());
    contentType->setType(TYPE_TEXT);
    contentType->setSubType(SUBTYPE_PLAIN);
    contentType->setCharset(CHARSET_UTF_8);
    contentType->setBoundary(QCString::fromLiteral(""));
    contentType->assemble();
    return contentType->mString;
}

} // namespace

QCString EMAIL_Header::getPartID() const
{
    return bodyOr(QCString(), *this, FieldName::partId());
}

void EMAIL_Header::setPartID(const QCString& id)
{
    field(FieldName::partId())->mBody = id;
}

int EMAIL_Header::getAttSize() const
{
    const EMAIL_Field* size = getField(FieldName::attachmentSize());
    return size == nullptr ? -1 : size->mBody.toInt();
}

void EMAIL_Header::setAttSize(int size)
{
    field(FieldName::attachmentSize())->mBody.setNum(size);
}

QCString EMAIL_Header::getASAttName() const
{
    return bodyOr(QCString::fromLiteral(""), *this, FieldName::attachmentName());
}

void EMAIL_Header::setASAttName(const QCString& name)
{
    field(FieldName::attachmentName())->mBody = name;
}

bool EMAIL_Header::isAttDownloaded() const
{
    return getField(FieldName::attachmentNotDownloaded()) == nullptr;
}

void EMAIL_Header::setAttUndownloaded()
{
    field(FieldName::attachmentNotDownloaded())->mBody = QCString::fromLiteral("1");
}

int EMAIL_Header::getBodySize(bool* ok) const
{
    return bodyOr(QCString(), *this, FieldName::bodySize()).toInt(ok);
}

void EMAIL_Header::setBodySize(int size)
{
    field(FieldName::bodySize())->mBody.setNum(size);
}

int EMAIL_Header::getBodyTruncated(bool* ok) const
{
    if (const EMAIL_Field* truncated = getField(FieldName::bodyTruncated()))
        return truncated->mBody.toInt(ok);
    if (ok != nullptr)
        *ok = true;
    return -1;
}

void EMAIL_Header::setBodyTruncated(int marker)
{
    field(FieldName::bodyTruncated())->mBody.setNum(marker);
}

void EMAIL_Header::removeBodyTruncatedInfo()
{
    removeField(FieldName::bodySize());
    removeField(FieldName::bodyTruncated());
}

void EMAIL_Header::setSmartSendInfo(unsigned int refFolderId, unsigned int refMessageId,
                                    unsigned int dataLength, int type)
{
    addNewField(*this, FieldName::smartSendFolder(), decimal(refFolderId));
    addNewField(*this, FieldName::smartSendMessage(), decimal(refMessageId));
    addNewField(*this, FieldName::smartSendLength(), decimal(dataLength));
    addNewField(*this, FieldName::smartSendType(), decimal(type));
}

unsigned int EMAIL_Header::getSmartSendRefFolderID(bool* ok) const
{
    return bodyOr(QCString(), *this, FieldName::smartSendFolder()).toUInt(ok);
}

unsigned int EMAIL_Header::getSmartSendRefMessageID(bool* ok) const
{
    return bodyOr(QCString(), *this, FieldName::smartSendMessage()).toUInt(ok);
}

unsigned int EMAIL_Header::getSmartSendDataLength(bool* ok) const
{
    return bodyOr(QCString(), *this, FieldName::smartSendLength()).toUInt(ok);
}

int EMAIL_Header::getSmartSendType(bool* ok) const
{
    const EMAIL_Field* type = getField(FieldName::smartSendType());
    return type == nullptr ? 0 : type->mBody.toInt(ok);
}

int EMAIL_Header::getOperation() const
{
    bool ok = false;
    const int operation = bodyOr(QCString(), *this, FieldName::smartSendType()).toInt(&ok);
    return ok ? operation : -1;
}

void EMAIL_Header::removeSmartDataInfo()
{
    removeField(FieldName::smartSendFolder());
    removeField(FieldName::smartSendMessage());
    removeField(FieldName::smartSendLength());
    removeField(FieldName::smartSendType());
}

QCString EMAIL_Header::getSmartData()
{
    const QCString from = assembledLine(*this, FieldName::from());
    const bool hasTo = getField(FieldName::to()) != nullptr;
    const QCString people = hasTo ? assembledLine(*this, FieldName::to()) : from;
    const QCString cc = assembledLine(*this, FieldName::cc());
    const QCString bcc = assembledLine(*this, FieldName::bcc());
    const QCString subject = assembledLine(*this, FieldName::subject());
    const QCString date = assembledLine(*this, FieldName::date());
    const QCString version = assembledLine(*this, FieldName::mimeVersion());
    const QCString type = plainTextContentType(*this);
    for (const QCString& line : {people, cc, bcc, subject, date, version, type}) {
        if (isRefused(line))
            return refusedText();
    }
    return joined({people.view(), cc.view(), bcc.view(), subject.view(), date.view(),
                   version.view(), type.view()});
}
