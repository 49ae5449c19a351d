// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <deque>

class EMAIL_Body;
class EMAIL_Entity;

namespace tarvomime {

/// Parses an entity, or a body, and everything below it without recursion: a component cuts its
/// text into children and puts them on a work list, and the list is emptied from the top. A message
/// that nests as deep as its sender likes costs memory for its parts, never stack.
class TreeParser
{
public:
    /// With a `path` every text is a range of that file and bodies stay there; without one, every
    /// text is a slice of the buffer handed in.
    explicit TreeParser(const QString& path);

    void addEntity(EMAIL_Entity& entity, const char* data, int start, int length);
    void addBody(EMAIL_Body& body, const char* data, int start, int length);
    /// Empties the work list.
    void run();

private:
    struct Task
    {
        EMAIL_Entity* entity;
        const char* data;
        int start;
        int length;
    };

    bool inFile() const { return !mPath.isEmpty(); }
    void parseEntity(const Task& task);
    void addEnclosedMessage(EMAIL_Body& body);
    void cutIntoParts(EMAIL_Body& body, const char* data, int start, int length);
    void addPart(EMAIL_Body& body, const char* data, int start, int length);

    QString mPath;
    std::deque<Task> mTasks;
};

} // namespace tarvomime
