// SPDX-License-Identifier: MIT
#pragma once

#include "extra/MessageContent.h"
#include "utility/EMAIL_Message.h"

#include <QHash>
#include <deque>
#include <memory>
#include <vector>

class EMAIL_Body;

namespace tarvomime {

/// The messages that the library leaves unparsed in a file, and the files they lie in.
class EnclosedMessages
{
public:
    /// The message enclosed in `entity`; null when it holds none, cannot be read, or too much was
    /// searched already.
    const EMAIL_Entity* messageIn(const EMAIL_Entity& entity);

private:
    const EMAIL_Entity* parseStored(const EMAIL_Body& body);

    std::deque<EMAIL_Message> mMessages;
    // How many bytes were searched in those of them that have parts, and how many may be.
    qint64 mSearched = 0;
    qint64 mAllowed = 0;
};

/// The one walk over the tree, over a list of what is still to be visited.
class ContentWalk
{
public:
    MessageContent run(const EMAIL_Entity& message);

private:
    // How a part's place in the tree decides what it is.
    enum class Place { Shown, Related, Attached, Signature };

    struct Pending
    {
        const EMAIL_Entity* entity;
        int parent;
        int ordinal;
        int message;
        Place place;
        // Index of the body that an alternative fills, and which of its children this is in.
        int body;
        int choice;
    };

    // Which child of an alternative the plain text and the HTML of a body are from.
    struct Choices
    {
        int plain = -1;
        int html = -1;
    };

    void visit(const Pending& next);
    void visitContainer(const Pending& next, int index);
    void visitEnclosed(const Pending& next, int index, const EMAIL_Entity& message);
    void visitLeaf(const Pending& next, int index);
    void visitText(const Pending& next, int index);
    void visitCalendar(const Pending& next, int index);
    void addToAlternative(const Pending& next, int index, bool html);
    Place placeOf(const Pending& container, const QByteArray& type, bool isRoot, int ordinal) const;
    void attach(int index);
    void addInline(int index);
    void addWrapper(const Pending& next, int index, SecurityWrapper::Kind kind);
    void enterWrapper(const Pending& next, int index);

    ContentPart& part(int index) { return mContent.parts[index]; }
    ShownMessage& messageOf(int index) { return mContent.messages[part(index).message]; }

    MessageContent mContent;
    std::shared_ptr<EnclosedMessages> mEnclosed = std::make_shared<EnclosedMessages>();
    std::vector<Pending> mPending;
    // By message and body.
    std::vector<std::vector<Choices>> mChoices;
    // By part: which of its message's wrappers it is.
    QHash<int, int> mWrappers;
};

} // namespace tarvomime
