// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Message.h"

#include <QByteArray>
#include <deque>
#include <string_view>
#include <vector>

namespace tarvomime::tool {

class InputFile;

/// One entity of a message and its place in the tree.
struct Part
{
    EMAIL_Entity* entity;
    /// Index of the containing part, or -1 for the message itself.
    int parent;
    /// Position among its siblings, counted from 1.
    int ordinal;
    /// Levels below the message itself.
    int depth;
    bool isLastSibling;
    bool hasParts;
};

/// All entities of a message in reading order, enclosed messages included. Built, searched and
/// walked without recursion, whatever the message's depth.
///
/// A part's number names the way to it: the message is 1, the second below it 1.2, the message
/// enclosed in that 1.2.1.
///
/// An enclosed message is searched for its delimiters anew. Messages that take turns with
/// containers for more than about a hundred levels, which only an attacker writes, would so take
/// the square of their size: below that, an enclosed message stays in one piece.
class PartTree
{
public:
    /// `message` was parsed from `file`; it must outlive the tree, and so must the file.
    PartTree(EMAIL_Message& message, const InputFile& file);
    PartTree(const PartTree&) = delete;
    PartTree& operator=(const PartTree&) = delete;

    const std::vector<Part>& parts() const { return mParts; }
    /// The part's number; empty for one that lies more than 100 levels deep, where numbers would
    /// outgrow the message.
    QByteArray numberOf(int index) const;
    /// The part of that number, or -1.
    int find(std::string_view number) const;

private:
    struct Pending
    {
        EMAIL_Entity* entity;
        int parent;
        int ordinal;
        bool isLastSibling;
    };

    void visit(const Pending& next, std::vector<Pending>& pending);
    EMAIL_Message* enclosedMessage(const EMAIL_Entity& entity);

    const InputFile& mFile;
    std::vector<Part> mParts;
    /// The messages that the library leaves unparsed in a file.
    std::deque<EMAIL_Message> mEnclosed;
    /// How many bytes were searched in those of them that have parts.
    qint64 mSearched = 0;
};

} // namespace tarvomime::tool
