// SPDX-License-Identifier: MIT
#include "extra/ContentWalk.h"

#include "extra/PartHeader.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <QFile>

namespace tarvomime {

namespace {

// How often the bytes of a message may be searched for the delimiters of enclosed messages.
constexpr qint64 kMostSearches = 100;

// A body that must be decoded first holds no message that could be walked in place.
bool isEncoded(const EMAIL_Entity& entity)
{
    const int cte = entity.mHeader->getCte();
    return cte == CTE_BASE64 || cte == CTE_QUOTED_PRINTABLE;
}

bool isRelated(const QByteArray& type)
{
    return type == "multipart/related" || type == "application/vnd.wap.multipart.related";
}

// The root of multipart/related: the part that "start" names, else the first.
int rootOrdinal(const EMAIL_Entity& related)
{
    QByteArray start = typeParameter(related, "start");
    if (start.startsWith('<') && start.endsWith('>'))
        start = start.mid(1, start.size() - 2);
    const EMAIL_Body& body = *related.mBody;
    for (int i = 0; !start.isEmpty() && i < body.numBodyParts(); ++i) {
        if (contentIdOf(*body.bodyPart(i)) == start)
            return i + 1;
    }
    return 1;
}

bool isCalendar(const QByteArray& type)
{
    return type == "text/calendar" || type == "application/ics";
}

// Text that is written for people, not for programs.
bool isShownText(const QByteArray& type)
{
    return type == "text/plain" || type == "text/html" || type == "text/enriched" ||
           type == "text/richtext" || type == "application/xhtml+xml" ||
           type == "text/x-markdown" || type == "text/markdown" || type == "text/x-amp-html" ||
           type == "text/watch-html";
}

// Forms that only some programs can show: not taken where there is plain text or HTML.
bool isOtherForm(const QByteArray& type)
{
    return type != "text/plain" && !isHtmlType(type);
}

bool hasBody(const EMAIL_Entity& entity)
{
    const EMAIL_Body& body = *entity.mBody;
    return body.mInMemory ? !body.mString.isEmpty() : body.mLength > 0;
}

} // namespace

const EMAIL_Entity* EnclosedMessages::messageIn(const EMAIL_Entity& entity)
{
    const EMAIL_Body& body = *entity.mBody;
    if (isEncoded(entity))
        return nullptr;
    return body.mInMemory ? body.mMessage : parseStored(body);
}

const EMAIL_Entity* EnclosedMessages::parseStored(const EMAIL_Body& body)
{
    QFile file(body.mFile);
    if (body.mLength <= 0 || !file.open(QIODevice::ReadOnly) ||
        body.mOffset + qint64(body.mLength) > file.size())
        return nullptr;
    mAllowed = qMax(mAllowed, kMostSearches * file.size());
    if (mSearched > mAllowed)
        return nullptr;
    const uchar* bytes = file.map(0, file.size());
    if (bytes == nullptr)
        return nullptr;
    EMAIL_Message& message = mMessages.emplace_back();
    message.parse(reinterpret_cast<const char*>(bytes), body.mOffset, body.mLength, body.mFile);
    if (message.mBody->numBodyParts() > 0)
        mSearched += body.mLength;
    return &message;
}

MessageContent ContentWalk::run(const EMAIL_Entity& message)
{
    mContent.messages.append(ShownMessage());
    mChoices.emplace_back();
    mPending.push_back({&message, -1, 1, 0, Place::Shown, -1, -1});
    while (!mPending.empty()) {
        const Pending next = mPending.back();
        mPending.pop_back();
        visit(next);
    }
    mContent.enclosed = mEnclosed;
    return std::move(mContent);
}

void ContentWalk::visit(const Pending& next)
{
    const int index = int(mContent.parts.size());
    const QByteArray type = typeNameOf(*next.entity);
    mContent.parts.append(ContentPart{next.entity, next.parent, next.ordinal, next.message,
                                      PartRole::Attachment, type, contentIdOf(*next.entity)});
    enterWrapper(next, index);
    if (next.entity->mBody->numBodyParts() > 0) {
        visitContainer(next, index);
        return;
    }
    const EMAIL_Entity* enclosed =
        isMessageType(type) ? mEnclosed->messageIn(*next.entity) : nullptr;
    if (enclosed != nullptr)
        visitEnclosed(next, index, *enclosed);
    else
        visitLeaf(next, index);
}

void ContentWalk::visitEnclosed(const Pending& next, int index, const EMAIL_Entity& message)
{
    attach(index);
    part(index).role = PartRole::Message;
    const int number = int(mContent.messages.size());
    ShownMessage shown;
    shown.part = index + 1;
    shown.parent = next.message;
    mContent.messages.append(shown);
    mChoices.emplace_back();
    mPending.push_back({&message, index, 1, number, Place::Shown, -1, -1});
}

void ContentWalk::visitContainer(const Pending& next, int index)
{
    part(index).role = PartRole::Container;
    const QByteArray type = part(index).type;
    if (type == "multipart/signed")
        addWrapper(next, index, SecurityWrapper::Kind::Signed);
    if (type == "multipart/encrypted")
        addWrapper(next, index, SecurityWrapper::Kind::Encrypted);
    Pending container = next;
    if (type == "multipart/alternative" && next.body < 0 && next.place == Place::Shown) {
        messageOf(index).bodies.append(ShownBody());
        mChoices[std::size_t(next.message)].emplace_back();
        container.body = int(messageOf(index).bodies.size()) - 1;
    }
    const int root = isRelated(type) ? rootOrdinal(*next.entity) : 0;
    // The last child goes first: the top of the stack is what is read next.
    for (int ordinal = next.entity->mBody->numBodyParts(); ordinal > 0; --ordinal) {
        Pending child = container;
        child.entity = next.entity->mBody->bodyPart(ordinal - 1);
        child.parent = index;
        child.ordinal = ordinal;
        child.place = placeOf(container, type, ordinal == root, ordinal);
        // Within an alternative, the children of its outermost level are the choices.
        if (type == "multipart/alternative" && next.choice < 0)
            child.choice = ordinal;
        mPending.push_back(child);
    }
}

ContentWalk::Place ContentWalk::placeOf(const Pending& container, const QByteArray& type,
                                        bool isRoot, int ordinal) const
{
    if (isRelated(type) && !isRoot && container.place == Place::Shown)
        return Place::Related;
    if (type == "multipart/signed" && ordinal == 2)
        return Place::Signature;
    if (type == "multipart/encrypted" || (type == "multipart/report" && ordinal > 1))
        return Place::Attached;
    return container.place;
}

void ContentWalk::addWrapper(const Pending& next, int index, SecurityWrapper::Kind kind)
{
    SecurityWrapper wrapper;
    wrapper.kind = kind;
    wrapper.wrapper = index;
    wrapper.protocol = typeParameter(*next.entity, "protocol").toLower();
    QList<SecurityWrapper>& wrappers = messageOf(index).wrappers;
    mWrappers.insert(index, int(wrappers.size()));
    wrappers.append(wrapper);
}

// Tells the wrapper around a part that it holds it.
void ContentWalk::enterWrapper(const Pending& next, int index)
{
    const auto found = mWrappers.constFind(next.parent);
    if (found == mWrappers.constEnd())
        return;
    SecurityWrapper& wrapper = messageOf(index).wrappers[*found];
    const bool isSigned = wrapper.kind == SecurityWrapper::Kind::Signed;
    if (isSigned && next.ordinal == 1)
        wrapper.content = index;
    if (isSigned && next.ordinal == 2)
        wrapper.signature = index;
}

void ContentWalk::visitLeaf(const Pending& next, int index)
{
    const QByteArray type = part(index).type;
    if (isContainerType(type)) {
        if (hasBody(*next.entity) && next.place == Place::Shown)
            visitText(next, index);
        else
            part(index).role = PartRole::Container;
        return;
    }
    if (type == "application/pkcs7-mime" || type == "application/x-pkcs7-mime") {
        const bool isSigned = typeParameter(*next.entity, "smime-type").toLower() == "signed-data";
        addWrapper(next, index,
                   isSigned ? SecurityWrapper::Kind::Signed : SecurityWrapper::Kind::Encrypted);
        messageOf(index).wrappers.last().protocol = type;
    }
    if (isCalendar(type))
        visitCalendar(next, index);
    else if (next.place == Place::Signature)
        part(index).role = PartRole::Signature;
    else if (next.place == Place::Attached || saysAttachment(*next.entity))
        attach(index); // NOLINT(bugprone-branch-clone): the order decides
    else if (next.place == Place::Related)
        addInline(index);
    else if (isShownText(type))
        visitText(next, index);
    else if (next.body >= 0 && type.startsWith("text/"))
        part(index).role = PartRole::Alternative;
    else
        attach(index);
}

void ContentWalk::visitText(const Pending& next, int index)
{
    const bool html = isHtmlType(part(index).type);
    if (next.body >= 0) {
        addToAlternative(next, index, html);
        return;
    }
    ShownMessage& message = messageOf(index);
    if (!message.bodies.isEmpty() && isNamed(*next.entity)) {
        attach(index);
        return;
    }
    part(index).role = PartRole::Body;
    ShownBody body;
    (html ? body.html : body.plain).append(index);
    message.bodies.append(body);
    mChoices[std::size_t(next.message)].emplace_back();
}

void ContentWalk::addToAlternative(const Pending& next, int index, bool html)
{
    ShownBody& body = messageOf(index).bodies[next.body];
    QList<int>& form = html ? body.html : body.plain;
    if (!form.isEmpty() && (isOtherForm(part(index).type) || !hasBody(*next.entity))) {
        part(index).role = PartRole::Alternative;
        return;
    }
    Choices& choices = mChoices[std::size_t(next.message)][std::size_t(next.body)];
    int& chosen = html ? choices.html : choices.plain;
    // A part beside the first one of the same choice is a file unless it has no name.
    if (chosen == next.choice && !form.isEmpty() && isNamed(*next.entity)) {
        attach(index);
        return;
    }
    if (chosen != next.choice) {
        for (const int other : form)
            part(other).role = PartRole::Alternative;
        form.clear();
    }
    chosen = next.choice;
    part(index).role = PartRole::Body;
    form.append(index);
}

void ContentWalk::visitCalendar(const Pending& next, int index)
{
    ShownMessage& message = messageOf(index);
    if (message.invitation < 0)
        message.invitation = index;
    if (next.body >= 0 && !saysAttachment(*next.entity))
        part(index).role = PartRole::Invitation;
    else
        attach(index);
}

void ContentWalk::attach(int index)
{
    messageOf(index).attachments.append(index);
}

void ContentWalk::addInline(int index)
{
    part(index).role = PartRole::Inline;
    messageOf(index).inlineParts.append(index);
}

} // namespace tarvomime
