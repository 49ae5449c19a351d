// SPDX-License-Identifier: MIT
#include "utility/tree/TreeDeleter.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Message.h"

#include <utility>

namespace tarvomime {

namespace {

// The entities that are to be deleted, the next one first. Freeing must not need memory, so they
// are linked through the one pointer that they no longer need: the one to their parent.
class Orphans
{
public:
    bool isEmpty() const { return mFirst == nullptr; }

    void push(EMAIL_Entity* entity)
    {
        // Applications reach every member: a list may hold a null.
        if (entity != nullptr)
            entity->mParent = std::exchange(mFirst, entity);
    }

    EMAIL_Entity* take()
    {
        EMAIL_Entity* entity = mFirst;
        mFirst = static_cast<EMAIL_Entity*>(std::exchange(entity->mParent, nullptr));
        return entity;
    }

private:
    EMAIL_Entity* mFirst = nullptr;
};

// The list is emptied from its end: the enclosed message goes first, then the parts in their order.
void moveChildren(EMAIL_Body& body, Orphans& orphans)
{
    if (body.mBodyParts.autoDelete()) {
        for (int index = body.numBodyParts() - 1; index >= 0; --index)
            orphans.push(body.bodyPart(index));
        body.mBodyParts.setAutoDelete(false);
        body.mBodyParts.clear();
        body.mBodyParts.setAutoDelete(true);
    }
    orphans.push(std::exchange(body.mMessage, nullptr));
}

} // namespace

// An entity is deleted only after its own children were moved to the list, so that its destructor
// finds none and no destructor runs inside another.
void deleteChildren(EMAIL_Body& body)
{
    Orphans orphans;
    moveChildren(body, orphans);
    while (!orphans.isEmpty()) {
        EMAIL_Entity* entity = orphans.take();
        // Applications reach every member: a body may be gone.
        if (entity->mBody != nullptr)
            moveChildren(*entity->mBody, orphans);
        delete entity;
    }
}

} // namespace tarvomime
