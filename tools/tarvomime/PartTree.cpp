// SPDX-License-Identifier: MIT
#include "tools/tarvomime/PartTree.h"

#include "tools/tarvomime/InputFile.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <algorithm>

namespace tarvomime::tool {

namespace {

constexpr int kDeepestNumber = 100;
constexpr qint64 kMostSearches = 100;

/// Whether the body of `entity` is a message as it stands, not one that must be decoded first.
bool enclosesMessage(const EMAIL_Entity& entity)
{
    const EMAIL_ContentType* type = entity.mHeader->getContentType();
    if (type == nullptr || type->mTypeEnum != TYPE_MESSAGE)
        return false;
    const int cte = entity.mHeader->getCte();
    return cte != CTE_BASE64 && cte != CTE_QUOTED_PRINTABLE;
}

/// Takes "12" of "12.3" and the "." behind it; 0 when there is no number.
int takeOrdinal(std::string_view& number)
{
    const std::size_t length = std::min(number.find('.'), number.size());
    const QCString digits(number.data(), static_cast<int>(length));
    number.remove_prefix(std::min(length + 1, number.size()));
    return digits.find('+') >= 0 ? 0 : digits.toInt();
}

} // namespace

PartTree::PartTree(EMAIL_Message& message, const InputFile& file) : mFile(file)
{
    std::vector<Pending> pending = {{&message, -1, 1, true}};
    while (!pending.empty()) {
        const Pending next = pending.back();
        pending.pop_back();
        visit(next, pending);
    }
}

void PartTree::visit(const Pending& next, std::vector<Pending>& pending)
{
    const int index = static_cast<int>(mParts.size());
    const int depth = next.parent < 0 ? 0 : mParts[static_cast<std::size_t>(next.parent)].depth + 1;
    const EMAIL_Body& body = *next.entity->mBody;
    const int count = body.numBodyParts();
    // The last child goes first: the top of the stack is what is read next.
    for (int child = count - 1; child >= 0; --child)
        pending.push_back({body.bodyPart(child), index, child + 1, child == count - 1});
    EMAIL_Message* enclosed = count == 0 ? enclosedMessage(*next.entity) : nullptr;
    if (enclosed != nullptr)
        pending.push_back({enclosed, index, 1, true});
    mParts.push_back({next.entity, next.parent, next.ordinal, depth, next.isLastSibling,
                      count > 0 || enclosed != nullptr});
}

EMAIL_Message* PartTree::enclosedMessage(const EMAIL_Entity& entity)
{
    if (!enclosesMessage(entity))
        return nullptr;
    const EMAIL_Body& body = *entity.mBody;
    if (body.mInMemory || body.mLength <= 0)
        return body.mMessage;
    if (mSearched > kMostSearches * mFile.size())
        return nullptr;
    EMAIL_Message& message = mEnclosed.emplace_back();
    message.parse(mFile.data(), body.mOffset, body.mLength, body.mFile);
    if (message.mBody->numBodyParts() > 0)
        mSearched += body.mLength;
    return &message;
}

QByteArray PartTree::numberOf(int index) const
{
    if (mParts[static_cast<std::size_t>(index)].depth > kDeepestNumber)
        return {};
    QByteArray number;
    for (int at = index; at >= 0; at = mParts[static_cast<std::size_t>(at)].parent) {
        if (!number.isEmpty())
            number.prepend('.');
        number.prepend(QByteArray::number(mParts[static_cast<std::size_t>(at)].ordinal));
    }
    return number;
}

int PartTree::find(std::string_view number) const
{
    // Children follow their parent: one walk through the list is enough for all levels.
    int parent = -1;
    int ordinal = takeOrdinal(number);
    for (std::size_t i = 0; i < mParts.size(); ++i) {
        if (mParts[i].parent != parent || mParts[i].ordinal != ordinal)
            continue;
        parent = static_cast<int>(i);
        if (number.empty())
            return parent;
        ordinal = takeOrdinal(number);
    }
    return -1;
}

} // namespace tarvomime::tool
