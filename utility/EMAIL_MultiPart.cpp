// SPDX-License-Identifier: MIT
// The part as a value and as a tree; its body has its own file.
//
// Trees are walked with work lists: a message nests as deep as its sender likes.
#include "utility/EMAIL_MultiPart.h"

#include "utility/RefusedBody.h"
#include "utility/codec/MediaTypes.h"
#include "utility/text/Latin1.h"
#include "utility/tree/WorkList.h"

#include <memory>
#include <new>
#include <utility>

using namespace tarvomime;

namespace {

// The parts that are to be deleted, the next one first. Freeing must not need memory, so they are
// linked through the one pointer that they no longer need: the one to their parent.
class Orphans
{
public:
    bool isEmpty() const { return mFirst == nullptr; }

    // Takes over the items of `list`, unless the list does not own them.
    void takeFrom(QPtrList<EMAIL_MultiPart>& list)
    {
        while (list.autoDelete() && !list.isEmpty()) {
            if (EMAIL_MultiPart* part = list.take(list.count() - 1))
                part->mParent = std::exchange(mFirst, part);
        }
    }

    EMAIL_MultiPart* take()
    {
        EMAIL_MultiPart* part = mFirst;
        mFirst = std::exchange(part->mParent, nullptr);
        return part;
    }

private:
    EMAIL_MultiPart* mFirst = nullptr;
};

// A new sub-part at the end of `parent`, which owns it; null when there is no memory.
EMAIL_MultiPart* appendSubPart(EMAIL_MultiPart& parent)
{
    std::unique_ptr<EMAIL_MultiPart> subPart(new (std::nothrow) EMAIL_MultiPart(&parent));
    const bool isThere = subPart != nullptr && parent.mSubParts.append(subPart.get());
    return isThere ? subPart.release() : nullptr;
}

} // namespace

EMAIL_MultiPart::EMAIL_MultiPart(EMAIL_MultiPart* parent) : mParent(parent)
{
    mSubParts.setAutoDelete(true);
}

EMAIL_MultiPart::EMAIL_MultiPart(const EMAIL_MultiPart& other)
{
    mSubParts.setAutoDelete(true);
    // Stays when there is no memory for the copy.
    refuseBody(*this);
    *this = other;
}

// A part is deleted only after its own sub-parts were moved away, so that no destructor runs inside
// another.
EMAIL_MultiPart::~EMAIL_MultiPart()
{
    Orphans orphans;
    orphans.takeFrom(mSubParts);
    while (!orphans.isEmpty()) {
        EMAIL_MultiPart* part = orphans.take();
        orphans.takeFrom(part->mSubParts);
        delete part;
    }
}

// Built apart and exchanged at the end, so that a failed allocation changes nothing. The old
// sub-parts count as gone from the start: assigning a part to itself finds none to copy. They are
// deleted last, since one of them can be the source.
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): emptying the part is what it does
EMAIL_MultiPart& EMAIL_MultiPart::operator=(const EMAIL_MultiPart& other)
{
    struct Task
    {
        const EMAIL_MultiPart* source;
        EMAIL_MultiPart* target;
    };
    EMAIL_MultiPart copies(nullptr);
    WorkList<Task> tasks;
    if (!tasks.push({&other, &copies}))
        return *this;
    while (!tasks.isEmpty()) {
        const Task task = tasks.take();
        if (task.source == this)
            continue;
        for (const EMAIL_MultiPart* source : task.source->mSubParts) {
            if (source == nullptr)
                continue;
            EMAIL_MultiPart* copy = appendSubPart(*task.target);
            if (copy == nullptr || !tasks.push({source, copy}))
                return *this;
            copy->copyMembers(*source);
        }
    }
    mParent = other.mParent;
    copyMembers(other);
    copies.mSubParts.setAutoDelete(mSubParts.autoDelete());
    mSubParts.swap(copies.mSubParts);
    for (EMAIL_MultiPart* subPart : mSubParts)
        subPart->mParent = this;
    return *this;
}

// All but the sub-parts and the parent.
void EMAIL_MultiPart::copyMembers(const EMAIL_MultiPart& other)
{
    mTypeStr = other.mTypeStr;
    mTypeEnum = other.mTypeEnum;
    mSubTypeStr = other.mSubTypeStr;
    mSubTypeEnum = other.mSubTypeEnum;
    mCTE = other.mCTE;
    mCharset = other.mCharset;
    mName = other.mName;
    mDispFileName = other.mDispFileName;
    mDispType = other.mDispType;
    mDescription = other.mDescription;
    mLocation = other.mLocation;
    mID = other.mID;
    mBodyData = other.mBodyData;
    mBodyFile = other.mBodyFile;
    mBodyOffset = other.mBodyOffset;
    mBodyLength = other.mBodyLength;
    mInMemory = other.mInMemory;
    mEncoded = other.mEncoded;
    mAttDownloaded = other.mAttDownloaded;
    mMethod = other.mMethod;
    mASAttName = other.mASAttName;
    mAttSize = other.mAttSize;
    mPartID = other.mPartID;
    mBoundary = other.mBoundary;
}

int EMAIL_MultiPart::getSubMultiPartCount() const
{
    return mSubParts.count();
}

EMAIL_MultiPart* EMAIL_MultiPart::getSubMultiPart(int index) const
{
    return mSubParts.at(index);
}

bool EMAIL_MultiPart::addSubMultiPart(const EMAIL_MultiPart* part, int index)
{
    const int count = mSubParts.count();
    // The part changes hands: callers keep it const up to here.
    return mSubParts.insert(index < 0 || index >= count ? count : index,
                            const_cast<EMAIL_MultiPart*>(part));
}

bool EMAIL_MultiPart::removeSubPart(int index)
{
    return mSubParts.remove(index);
}

void EMAIL_MultiPart::setType(int type)
{
    QCString name;
    writeMediaTypeName(type, name);
    mTypeStr = fromLatin1(name);
    mTypeEnum = type;
}

void EMAIL_MultiPart::setTypeStr(const QString& name)
{
    mTypeEnum = mediaTypeFromName(toLatin1(name));
    mTypeStr = name;
}

void EMAIL_MultiPart::setSubType(int subType)
{
    QCString name;
    writeSubtypeName(subType, name);
    mSubTypeStr = fromLatin1(name);
    mSubTypeEnum = subType;
}

void EMAIL_MultiPart::setSubTypeStr(const QString& name)
{
    mSubTypeEnum = subtypeFromName(toLatin1(name));
    mSubTypeStr = name;
}

void EMAIL_MultiPart::makeHeaderSendable()
{
    WorkList<EMAIL_MultiPart*> parts;
    bool isGoing = parts.push(this);
    while (isGoing && !parts.isEmpty()) {
        EMAIL_MultiPart* part = parts.take();
        part->mAttSize = -1;
        part->mASAttName = QString();
        part->mAttDownloaded = true;
        for (EMAIL_MultiPart* subPart : part->mSubParts)
            isGoing = isGoing && (subPart == nullptr || parts.push(subPart));
    }
}
