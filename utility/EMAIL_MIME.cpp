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
#include "utility/RefusedBody.h"
#include "utility/codec/MediaTypes.h"
#include "utility/file/WholeFile.h"
#include "utility/text/Joined.h"
#include "utility/tree/FreshBoundaries.h"
#include "utility/tree/WorkList.h"

#include <memory>
#include <new>

using namespace tarvomime;

namespace {

bool isContainerPart(const EMAIL_MultiPart& part)
{
    return isContainer({part.mTypeEnum, part.mSubTypeEnum});
}

// Hands the body over as it is: its bytes are in the part's transfer encoding already.
void copyBody(const EMAIL_MultiPart& part, EMAIL_Body& body)
{
    if (isBodyRefused(part))
        body.setMessage(refusedText());
    else if (part.isInMemory())
        body.setMessage(QCString::fromBytes(part.mBodyData));
    else
        body.setBodyInfo(part.mBodyFile, part.mBodyOffset, part.mBodyLength, part.mEncoded);
}

void copyBody(const EMAIL_Body& body, EMAIL_MultiPart& part)
{
    if (body.isInMemory() && isRefused(body.getMessage()))
        refuseBody(part);
    else if (body.isInMemory())
        part.setBody(QByteArray(body.getMessage()), true);
    else
        part.setBodyInfo(body.mFile, body.mOffset, body.mLength, body.mEncoded);
}

void checkBodyPart(bool isThere)
{
    TARVOMIME_CHECK_ALLOCATION(
        isThere, "bodyPart", "utility/EMAIL_MIME.cpp",
        "void EMAIL_MIME::mulitPartToEntity(const EMAIL_MultiPart&, EMAIL_Entity&, int)");
}

// A new part at the end of the body, which owns it.
EMAIL_BodyPart* appendBodyPart(EMAIL_Body& body)
{
    std::unique_ptr<EMAIL_BodyPart> bodyPart(new (std::nothrow) EMAIL_BodyPart);
    checkBodyPart(body.insertBodyPart(bodyPart.get(), -1));
    return bodyPart.release();
}

void checkSubPart(bool isThere)
{
    TARVOMIME_CHECK_ALLOCATION(
        isThere, "subMulitPart", "utility/EMAIL_MIME.cpp",
        "void EMAIL_MIME::entityToMulitPart(const EMAIL_Entity*, EMAIL_MultiPart&)");
}

// A new sub-part at the end of `part`, which owns it.
EMAIL_MultiPart* appendSubPart(EMAIL_MultiPart& part)
{
    std::unique_ptr<EMAIL_MultiPart> subPart(new (std::nothrow) EMAIL_MultiPart(&part));
    checkSubPart(subPart != nullptr && part.addSubMultiPart(subPart.get(), -1));
    return subPart.release();
}

using BodyParts = QPtrList<EMAIL_BodyPart>;

// Cuts the items behind the first `count` off without deleting them; the list keeps its room.
void cutTo(int count, BodyParts& parts)
{
    while (parts.count() > count)
        parts.take(parts.count() - 1);
}

// Puts the parts of `front` in the place of as many at the front of `parts`, and these into
// `front`, whose room is made before anything is moved.
void exchangeFront(BodyParts& parts, BodyParts& front)
{
    const int exchanged = front.count();
    for (int i = exchanged; i < parts.count(); ++i)
        checkBodyPart(front.append(nullptr));
    cutTo(exchanged, front);
    for (int i = exchanged; i < parts.count(); ++i)
        front.append(parts.at(i));
    cutTo(exchanged, parts);
    const bool owned = parts.autoDelete();
    parts.swap(front);
    parts.setAutoDelete(owned);
    front.setAutoDelete(owned);
}

// Appends a new body part built from `part`, with everything below it.
void appendTree(const EMAIL_MultiPart& part, EMAIL_Body& body)
{
    struct Task
    {
        const EMAIL_MultiPart* part;
        EMAIL_Body* body;
    };
    WorkList<Task> tasks;
    checkBodyPart(tasks.push({&part, &body}));
    while (!tasks.isEmpty()) {
        const Task task = tasks.take();
        const EMAIL_BodyPart* bodyPart = appendBodyPart(*task.body);
        EMAIL_MIME::setHeadFromMultiPart(*task.part, bodyPart->mHeader);
        if (!isContainerPart(*task.part)) {
            copyBody(*task.part, *bodyPart->mBody);
            continue;
        }
        // Last first, so that they come off the list, and are appended, in order.
        for (int i = task.part->getSubMultiPartCount() - 1; i >= 0; --i) {
            if (const EMAIL_MultiPart* subPart = task.part->getSubMultiPart(i))
                checkBodyPart(tasks.push({subPart, bodyPart->mBody}));
        }
    }
}

// Moves the only part of `source` to `body`.
void moveTree(EMAIL_Body& source, EMAIL_Body& body, int index)
{
    checkBodyPart(body.insertBodyPart(source.bodyPart(0), index));
    source.mBodyParts.take(0);
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
    const EMAIL_ContentType* type = contentTypeField();
    if (type == nullptr)
        return nullptr;
    if (isContainer({type->mTypeEnum, type->mSubTypeEnum}))
        return mMessage->mBody->bodyPart(index);
    return type->mTypeEnum == TYPE_MESSAGE ? mMessage->mBody->mMessage : nullptr;
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
        TARVOMIME_CHECK_ALLOCATION(mMessage, "mMessage", "utility/EMAIL_MIME.cpp",
                                   "void EMAIL_MIME::addMultiPart(const EMAIL_MultiPart&, int)");
    }
    mulitPartToEntity(part, *mMessage, index);
}

bool EMAIL_MIME::setMultiPart(const EMAIL_MultiPart& part, int index, bool replace)
{
    if (mMessage == nullptr) {
        mMessage = new (std::nothrow) EMAIL_Message;
        TARVOMIME_CHECK_ALLOCATION(
            mMessage, "mMessage", "utility/EMAIL_MIME.cpp",
            "bool EMAIL_MIME::setMultiPart(const EMAIL_MultiPart&, int, bool)");
    }
    EMAIL_Body tree;
    appendTree(part, tree);
    if (replace)
        removeMultiPart(index);
    moveTree(tree, *mMessage->mBody, index);
    return true;
}

bool EMAIL_MIME::removeMultiPart(int index)
{
    return mMessage != nullptr && mMessage->mBody->removeBodyPart(index);
}

QCString EMAIL_MIME::getBoundary() const
{
    const EMAIL_ContentType* type = contentTypeField();
    return type == nullptr ? QCString() : type->mBoundary;
}

int EMAIL_MIME::makeBoundariesUnique()
{
    return mMessage == nullptr ? 0 : drawFreshBoundaries(*mMessage);
}

// The parts are rebuilt beside the message and exchanged at the end, so that a failed allocation
// leaves it as it was.
//
// 1. In a message-type message it is the enclosed message that is read for every part.
// 2. From a part that cannot be read on, all stay as they are.
void EMAIL_MIME::makeHeaderSendable()
{
    EMAIL_BasicMsg::makeHeaderSendable();
    const int count = getMultiPartCount();
    if (count == 0)
        return;
    QPtrList<EMAIL_BodyPart>& parts = mMessage->mBody->mBodyParts;
    EMAIL_Body rebuilt;
    const EMAIL_Entity* entity = topLevelPart(0);
    for (int i = 0; entity != nullptr && i < count; entity = topLevelPart(++i)) {
        EMAIL_MultiPart part;
        entityToMulitPart(entity, part);
        part.makeHeaderSendable();
        appendTree(part, rebuilt);
    }
    exchangeFront(parts, rebuilt.mBodyParts);
    for (EMAIL_BodyPart* part : parts) {
        if (part != nullptr)
            part->setParent(mMessage->mBody);
    }
}

void EMAIL_MIME::mulitPartToEntity(const EMAIL_MultiPart& part, EMAIL_Entity& entity, int index)
{
    // Built apart from the entity: it gets the whole tree or, when memory fails, nothing of it.
    EMAIL_Body tree;
    appendTree(part, tree);
    moveTree(tree, *entity.mBody, index);
}

void EMAIL_MIME::entityToMulitPart(const EMAIL_Entity* entity, EMAIL_MultiPart& part)
{
    struct Task
    {
        const EMAIL_Entity* entity;
        EMAIL_MultiPart* part;
    };
    WorkList<Task> tasks;
    if (entity != nullptr)
        checkSubPart(tasks.push({entity, &part}));
    while (!tasks.isEmpty()) {
        const Task task = tasks.take();
        setHeadToMultiPart(task.entity->mHeader, *task.part);
        if (!isContainerPart(*task.part)) {
            copyBody(*task.entity->mBody, *task.part);
            continue;
        }
        for (const EMAIL_BodyPart* bodyPart : task.entity->mBody->mBodyParts) {
            if (bodyPart == nullptr)
                continue;
            checkSubPart(tasks.push({bodyPart, appendSubPart(*task.part)}));
        }
    }
}

int EMAIL_MIME::convertFileToMulitPart(const QString& path, EMAIL_MultiPart& part, bool& hasHeader)
{
    hasHeader = true;
    const WholeFile file(path);
    const std::string_view bytes = file.view();
    if (bytes.empty())
        return -1;
    EMAIL_BodyPart entity(QCString(""), nullptr);
    entity.parse(bytes.data(), 0, static_cast<int>(bytes.size()), path);
    hasHeader = !entity.mHeader->getMessage().isEmpty();
    if (hasHeader)
        entityToMulitPart(&entity, part);
    return 0;
}
