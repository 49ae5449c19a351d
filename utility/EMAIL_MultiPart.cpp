// SPDX-License-Identifier: MIT
// The part as a value and as a tree; its body has its own file.
//
// Trees are walked with work lists: a message nests as deep as its sender likes.
#include "utility/EMAIL_MultiPart.h"

#include "utility/text/Latin1.h"

#include <vector>

using namespace tarvomime;

namespace {

using Parts = std::vector<EMAIL_MultiPart*>;

/// Moves the items of `list` to `parts`, unless the list does not own them.
void moveOwned(QPtrList<EMAIL_MultiPart>& list, Parts& parts)
{
    if (!list.autoDelete())
        return;
    parts.insert(parts.end(), list.begin(), list.end());
    list.setAutoDelete(false);
    list.clear();
    list.setAutoDelete(true);
}

// A part is deleted only after its own sub-parts were moved to the list, so that no destructor runs
// inside another.
void deleteTrees(Parts& parts)
{
    while (!parts.empty()) {
        EMAIL_MultiPart* part = parts.back();
        parts.pop_back();
        if (part != nullptr)
            moveOwned(part->mSubParts, parts);
        delete part;
    }
}

} // namespace

EMAIL_MultiPart::EMAIL_MultiPart(EMAIL_MultiPart* parent) : mParent(parent)
{
    mSubParts.setAutoDelete(true);
}

EMAIL_MultiPart::EMAIL_MultiPart(const EMAIL_MultiPart& other)
{
    mSubParts.setAutoDelete(true);
    *this = other;
}

EMAIL_MultiPart::~EMAIL_MultiPart()
{
    Parts subParts;
    moveOwned(mSubParts, subParts);
    deleteTrees(subParts);
}

// The old sub-parts leave the tree first and are deleted last: assigning a part to itself finds
// none to copy, and one of them can be the source.
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): emptying the part is what it does
EMAIL_MultiPart& EMAIL_MultiPart::operator=(const EMAIL_MultiPart& other)
{
    Parts oldSubParts;
    moveOwned(mSubParts, oldSubParts);

    struct Task
    {
        const EMAIL_MultiPart* source;
        EMAIL_MultiPart* target;
    };
    // Built apart from this part, which can lie below `other`: what is added here is not copied.
    EMAIL_MultiPart copies(nullptr);
    std::vector<Task> tasks{{&other, &copies}};
    while (!tasks.empty()) {
        const Task task = tasks.back();
        tasks.pop_back();
        for (const EMAIL_MultiPart* source : task.source->mSubParts) {
            if (source == nullptr)
                continue;
            auto* copy = new EMAIL_MultiPart(task.target);
            copy->copyMembers(*source);
            task.target->mSubParts.append(copy);
            tasks.push_back({source, copy});
        }
    }
    mParent = other.mParent;
    copyMembers(other);
    Parts subParts;
    moveOwned(copies.mSubParts, subParts);
    for (EMAIL_MultiPart* subPart : subParts) {
        subPart->mParent = this;
        mSubParts.append(subPart);
    }
    deleteTrees(oldSubParts);
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
    EMAIL_Util::typeEnumToStr(type, name);
    mTypeEnum = type;
    mTypeStr = fromLatin1(name);
}

void EMAIL_MultiPart::setTypeStr(const QString& name)
{
    mTypeStr = name;
    mTypeEnum = EMAIL_Util::typeStrToEnum(toLatin1(name));
}

void EMAIL_MultiPart::setSubType(int subType)
{
    QCString name;
    EMAIL_Util::subTypeEnumToStr(subType, name);
    mSubTypeEnum = subType;
    mSubTypeStr = fromLatin1(name);
}

void EMAIL_MultiPart::setSubTypeStr(const QString& name)
{
    mSubTypeStr = name;
    mSubTypeEnum = EMAIL_Util::subTypeStrToEnum(toLatin1(name));
}

void EMAIL_MultiPart::makeHeaderSendable()
{
    Parts parts{this};
    while (!parts.empty()) {
        EMAIL_MultiPart* part = parts.back();
        parts.pop_back();
        if (part == nullptr)
            continue;
        part->mAttSize = -1;
        part->mASAttName = QString();
        part->mAttDownloaded = true;
        parts.insert(parts.end(), part->mSubParts.begin(), part->mSubParts.end());
    }
}
