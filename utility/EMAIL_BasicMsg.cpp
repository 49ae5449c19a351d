// SPDX-License-Identifier: MIT
// The handle itself and its private bookkeeping; values of the header and the body have their own
// files.
#include "utility/EMAIL_BasicMsg.h"

#include "types/AllocationCheck.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"
#include "utility/file/WholeFile.h"
#include "utility/header/EmptyHeader.h"
#include "utility/header/FieldNames.h"
#include "utility/text/Latin1.h"

#include <memory>
#include <new>

using namespace tarvomime;

EMAIL_BasicMsg::EMAIL_BasicMsg()
{
    mMessage = new (std::nothrow) EMAIL_Message;
    TARVOMIME_CHECK_ALLOCATION(mMessage, "mMessage", "utility/EMAIL_BasicMsg.cpp",
                               "EMAIL_BasicMsg::EMAIL_BasicMsg()");
}

// A constructor that is left by an exception runs no destructor: until the text is parsed, the
// message is not the handle's.
EMAIL_BasicMsg::EMAIL_BasicMsg(const QString& raw)
{
    // A text that is too long for the interface gives an empty message.
    const bool fits = raw.size() <= QCString::longestLength;
    mLength = fits ? static_cast<int>(raw.size()) : 0;
    const QCString text = fits ? toLatin1(raw) : QCString();
    std::unique_ptr<EMAIL_Message> message(new (std::nothrow) EMAIL_Message(text, nullptr));
    TARVOMIME_CHECK_ALLOCATION(message, "mMessage", "utility/EMAIL_BasicMsg.cpp",
                               "EMAIL_BasicMsg::EMAIL_BasicMsg(const QString&)");
    message->parse();
    mMessage = message.release();
}

EMAIL_BasicMsg::EMAIL_BasicMsg(const QByteArray& raw)
{
    const QCString text(raw);
    std::unique_ptr<EMAIL_Message> message(new (std::nothrow) EMAIL_Message(text, nullptr));
    TARVOMIME_CHECK_ALLOCATION(message, "mMessage", "utility/EMAIL_BasicMsg.cpp",
                               "EMAIL_BasicMsg::EMAIL_BasicMsg(const QByteArray&)");
    mLength = text.length();
    message->parse();
    mMessage = message.release();
}

EMAIL_BasicMsg::~EMAIL_BasicMsg()
{
    delete mMessage;
}

void EMAIL_BasicMsg::setDefaultFileds()
{
    setXMailer(QStringLiteral("Kelda-Tarvo"));
    setMimeVersion(QStringLiteral("1.0"));
}

int EMAIL_BasicMsg::parse(const QString& path)
{
    if (mMessage == nullptr)
        return -1;
    const WholeFile file(path);
    const std::string_view bytes = file.view();
    if (bytes.empty())
        return -1;
    mLength = static_cast<int>(bytes.size());
    mMessage->parse(bytes.data(), 0, mLength, path);
    return 0;
}

const QCString& EMAIL_BasicMsg::assemble()
{
    if (mMessage == nullptr) {
        static const QCString nothing;
        return nothing;
    }
    mMessage->assemble();
    return mMessage->getMessage();
}

int EMAIL_BasicMsg::assemble(QFile* file)
{
    return mMessage == nullptr ? -1 : mMessage->assemble(file);
}

QString EMAIL_BasicMsg::headerAsString() const
{
    return fromLatin1(orEmpty(getHeader()).getMessage());
}

int EMAIL_BasicMsg::getMessageLength() const
{
    return mLength;
}

EMAIL_Header* EMAIL_BasicMsg::getHeader() const
{
    return mMessage == nullptr ? nullptr : mMessage->mHeader;
}

void EMAIL_BasicMsg::setHeader(const QCString& text)
{
    if (EMAIL_Header* header = getHeader()) {
        header->setMessage(text);
        header->parse();
    }
}

void EMAIL_BasicMsg::makeHeaderSendable()
{
    if (EMAIL_Header* header = getHeader())
        header->asSendable(true);
}

void EMAIL_BasicMsg::addReceiptRequest(const QString& address)
{
    if (EMAIL_Header* header = getHeader()) {
        const QCString value = toLatin1(address);
        header->field(FieldName::dispositionNotificationTo())->mBody = value;
        header->field(FieldName::returnReceiptTo())->mBody = value;
    }
}

void EMAIL_BasicMsg::removeReceiptRequest()
{
    if (EMAIL_Header* header = getHeader()) {
        header->removeField(FieldName::dispositionNotificationTo());
        header->removeField(FieldName::returnReceiptTo());
    }
}

int EMAIL_BasicMsg::needReadReceipt(QCString& out) const
{
    const EMAIL_Header& header = orEmpty(getHeader());
    const EMAIL_Field* request = header.getField(FieldName::dispositionNotificationTo());
    if (request == nullptr)
        request = header.getField(FieldName::returnReceiptTo());
    if (request == nullptr)
        return 0;
    out = request->mBody;
    return 1;
}

bool EMAIL_BasicMsg::getXSendDsn() const
{
    return orEmpty(getHeader()).getField(FieldName::deliveryNotification()) != nullptr;
}

void EMAIL_BasicMsg::setXSendDsn(bool on)
{
    EMAIL_Header* header = getHeader();
    if (header == nullptr)
        return;
    if (!on)
        header->removeField(FieldName::deliveryNotification());
    else if (!getXSendDsn())
        header->field(FieldName::deliveryNotification())->mBody = "1";
}

void EMAIL_BasicMsg::setSmartSendInfo(unsigned int refFolderId, unsigned int refMessageId,
                                      unsigned int dataLength, int type)
{
    if (EMAIL_Header* header = getHeader())
        header->setSmartSendInfo(refFolderId, refMessageId, dataLength, type);
}

int EMAIL_BasicMsg::getSmartSendInfo(unsigned int& refFolderId, unsigned int& refMessageId,
                                     unsigned int& dataLength, int& type) const
{
    const EMAIL_Header& header = orEmpty(getHeader());
    refFolderId = header.getSmartSendRefFolderID();
    refMessageId = header.getSmartSendRefMessageID();
    dataLength = header.getSmartSendDataLength();
    type = header.getSmartSendType();
    return 0;
}

int EMAIL_BasicMsg::getOperation() const
{
    return orEmpty(getHeader()).getOperation();
}

void EMAIL_BasicMsg::removeSmartDataInfo()
{
    if (EMAIL_Header* header = getHeader())
        header->removeSmartDataInfo();
}

int EMAIL_BasicMsg::getBodySize(bool* ok) const
{
    return orEmpty(getHeader()).getBodySize(ok);
}

void EMAIL_BasicMsg::setBodySize(unsigned int size)
{
    if (EMAIL_Header* header = getHeader())
        header->setBodySize(static_cast<int>(size));
}

int EMAIL_BasicMsg::getBodyTruncated(bool* ok) const
{
    return orEmpty(getHeader()).getBodyTruncated(ok);
}

void EMAIL_BasicMsg::setBodyTruncated(int marker)
{
    if (EMAIL_Header* header = getHeader())
        header->setBodyTruncated(marker);
}

void EMAIL_BasicMsg::removeBodyTruncatedInfo()
{
    if (EMAIL_Header* header = getHeader())
        header->removeBodyTruncatedInfo();
}
