// SPDX-License-Identifier: MIT
#include "utility/tree/TreeDeleter.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Message.h"

#include <iterator>
#include <utility>
#include <vector>

namespace tarvomime {

namespace {

using Orphans = std::vector<EMAIL_Entity*>;

// The list is emptied from its end: the enclosed message goes first, then the parts in their order.
void moveChildren(EMAIL_Body& body, Orphans& orphans)
{
    if (body.mBodyParts.autoDelete()) {
        orphans.insert(orphans.end(), std::make_reverse_iterator(body.mBodyParts.end()),
                       std::make_reverse_iterator(body.mBodyParts.begin()));
        body.mBodyParts.setAutoDelete(false);
        body.mBodyParts.clear();
        body.mBodyParts.setAutoDelete(true);
    }
    if (EMAIL_Message* message = std::exchange(body.mMessage, nullptr))
        orphans.push_back(message);
}

} // namespace

// An entity is deleted only after its own children were moved to the list, so that its destructor
// finds none and no destructor runs inside another.
void deleteChildren(EMAIL_Body& body)
{
    Orphans orphans;
    moveChildren(body, orphans);
    while (!orphans.empty()) {
        EMAIL_Entity* entity = orphans.back();
        orphans.pop_back();
        // Applications reach every member: a body may be gone, and a list may hold a null.
        if (entity != nullptr && entity->mBody != nullptr)
            moveChildren(*entity->mBody, orphans);
        delete entity;
    }
}

} // namespace tarvomime
