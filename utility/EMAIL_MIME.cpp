// SPDX-License-Identifier: MIT
// Top-level parts and the conversion of trees. Conversions are driven by work lists: a message
// nests as deep as its sender likes.
#include "utility/EMAIL_MIME.h"

#include "types/AllocationCheck.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/file/MappedFile.h"
#include "utility/tree/Container.h"

#include <new>
#include <vector>

using namespace tarvomime;

namespace {

bool isContainerPart(const EMAIL_MultiPart& part)
{
    return isContainer(part.mTypeEnum, part.mSubTypeEnum);
}

/// Hands the body over as it is: its bytes are in the part's transfer encoding already.
void copyBody(const EMAIL_MultiPart& part, EMAIL_Body& body)
{
    if (part.isInMemory())
        body.setMessage(QCString::fromBytes(part.mBodyData));
    else
        body.setBodyInfo(part.mBodyFile, part.mBodyOffset, part.mBodyLength, part.mEncoded);
}

void copyBody(const EMAIL_Body& body, EMAIL_MultiPart& part)
{
    if (body.isInMemory())
        part.setBody(QByteArray(body.getMessage()), true);
    else
        part.setBodyInfo(body.mFile, body.mOffset, body.mLength, body.mEncoded);
}

} // namespace

EMAIL_MIME::EMAIL_MIME() = default;

EMAIL_MIME::EMAIL_MIME(const QByteArray& raw) : EMAIL_BasicMsg(raw) {}

EMAIL_MIME::EMAIL_MIME(const QString& raw) : EMAIL_BasicMsg(raw) {}

EMAIL_MIME::~EMAIL_MIME() = default;

void EMAIL_MIME::setDefaultFileds()
{
    EMAIL_BasicMsg::setDefaultFileds();
    EMAIL_Header* header = getHeader();
    if (header == nullptr)
        return;
    EMAIL_ContentType* type = header->contentType();
    if (type->mTypeEnum == TYPE_MULTIPART)
        type->createBoundary();
}

int EMAIL_MIME::getMultiPartCount() const
{
    return mMessage == nullptr ? 0 : mMessage->mBody->numBodyParts();
}

// 1. The index is tested first, although it does not choose anything in a message-type message.
const EMAIL_Entity* EMAIL_MIME::topLevelPart(int index) const
{
    if (mMessage == nullptr || index < 0 || index > getMultiPartCount())
        return nullptr;
    if (mMessage->mHeader->getContentType() == nullptr)
        return nullptr;
    if (isContainer(getType(), getSubType()))
        return mMessage->mBody->bodyPart(index);
    return getType() == TYPE_MESSAGE ? mMessage->mBody->mMessage : nullptr;
}

bool EMAIL_MIME::getMultiPart(int index, EMAIL_MultiPart& part) const
{
    const EMAIL_Entity* entity = topLevelPart(index);
    if (entity == nullptr)
        return false;
    entityToMulitPart(entity, part);
    return true;
}

void EMAIL_MIME::addMultiPart(const EMAIL_MultiPart& part, int index)
{
    if (mMessage == nullptr) {
        mMessage = new (std::nothrow) EMAIL_Message;
        TARVOMIME_CHECK_ALLOCATION(mMessage, "mMessage",
                                   "void EMAIL_MIME::addMultiPart(const EMAIL_MultiPart&, int)");
    }
    mulitPartToEntity(part, *mMessage, index);
}

bool EMAIL_MIME::setMultiPart(const EMAIL_MultiPart& part, int index, bool replace)
{
    if (mMessage == nullptr) {
        mMessage = new (std::nothrow) EMAIL_Message;
        TARVOMIME_CHECK_ALLOCATION(
            mMessage, "mMessage",
            "bool EMAIL_MIME::setMultiPart(const EMAIL_MultiPart&, int, bool)");
    }
    if (replace)
        removeMultiPart(index);
    addMultiPart(part, index);
    return true;
}

bool EMAIL_MIME::removeMultiPart(int index)
{
    return mMessage != nullptr && mMessage->mBody->removeBodyPart(index);
}

QCString EMAIL_MIME::getBoundary() const
{
    const EMAIL_Header* header = getHeader();
    const EMAIL_ContentType* type = header == nullptr ? nullptr : header->getContentType();
    return type == nullptr ? QCString() : type->mBoundary;
}

// Each part is read, stripped and written back in its place. All of them are taken out and appended
// one by one, since replacing them in the list would cost its length each time.
void EMAIL_MIME::makeHeaderSendable()
{
    EMAIL_BasicMsg::makeHeaderSendable();
    if (topLevelPart(0) == nullptr)
        return;
    QPtrList<EMAIL_BodyPart>& list = mMessage->mBody->mBodyParts;
    const std::vector<EMAIL_BodyPart*> oldParts(list.begin(), list.end());
    list.setAutoDelete(false);
    list.clear();
    list.setAutoDelete(true);
    bool stopped = false;
    for (EMAIL_BodyPart* oldPart : oldParts) {
        // Behind a part that cannot be read, all stay as they are.
        stopped = stopped || oldPart == nullptr;
        if (stopped) {
            list.append(oldPart);
            continue;
        }
        EMAIL_MultiPart part;
        entityToMulitPart(oldPart, part);
        delete oldPart;
        part.makeHeaderSendable();
        mulitPartToEntity(part, *mMessage, -1);
    }
}

void EMAIL_MIME::mulitPartToEntity(const EMAIL_MultiPart& part, EMAIL_Entity& entity, int index)
{
    struct Task
    {
        const EMAIL_MultiPart* part;
        EMAIL_Entity* entity;
        int index;
    };
    std::vector<Task> tasks{{&part, &entity, index}};
    while (!tasks.empty()) {
        const Task task = tasks.back();
        tasks.pop_back();
        auto* bodyPart = new (std::nothrow) EMAIL_BodyPart;
        TARVOMIME_CHECK_ALLOCATION(
            bodyPart, "bodyPart",
            "void EMAIL_MIME::mulitPartToEntity(const EMAIL_MultiPart&, EMAIL_Entity&, int)");
        setHeadFromMultiPart(*task.part, bodyPart->mHeader);
        task.entity->mBody->insertBodyPart(bodyPart, task.index);
        if (!isContainerPart(*task.part)) {
            copyBody(*task.part, *bodyPart->mBody);
            continue;
        }
        // Last first, so that they come off the list, and are appended, in order.
        for (int i = task.part->getSubMultiPartCount() - 1; i >= 0; --i) {
            if (const EMAIL_MultiPart* subPart = task.part->getSubMultiPart(i))
                tasks.push_back({subPart, bodyPart, -1});
        }
    }
}

void EMAIL_MIME::entityToMulitPart(const EMAIL_Entity* entity, EMAIL_MultiPart& part)
{
    struct Task
    {
        const EMAIL_Entity* entity;
        EMAIL_MultiPart* part;
    };
    std::vector<Task> tasks;
    if (entity != nullptr)
        tasks.push_back({entity, &part});
    while (!tasks.empty()) {
        const Task task = tasks.back();
        tasks.pop_back();
        setHeadToMultiPart(task.entity->mHeader, *task.part);
        if (!isContainerPart(*task.part)) {
            copyBody(*task.entity->mBody, *task.part);
            continue;
        }
        for (const EMAIL_BodyPart* bodyPart : task.entity->mBody->mBodyParts) {
            if (bodyPart == nullptr)
                continue;
            auto* subMulitPart = new (std::nothrow) EMAIL_MultiPart(task.part);
            TARVOMIME_CHECK_ALLOCATION(
                subMulitPart, "subMulitPart",
                "void EMAIL_MIME::entityToMulitPart(const EMAIL_Entity*, EMAIL_MultiPart&)");
            task.part->addSubMultiPart(subMulitPart, -1);
            tasks.push_back({bodyPart, subMulitPart});
        }
    }
}

int EMAIL_MIME::convertFileToMulitPart(const QString& path, EMAIL_MultiPart& part, bool& hasHeader)
{
    hasHeader = true;
    const MappedFile file(path);
    if (!file.isOpen())
        return -1;
    EMAIL_BodyPart entity(QCString(""), nullptr);
    entity.parse(file.data(), 0, file.size(), path);
    hasHeader = !entity.mHeader->getMessage().isEmpty();
    if (hasHeader)
        entityToMulitPart(&entity, part);
    return 0;
}
