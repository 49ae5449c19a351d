// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "utility/tree/Delimiter.h"
#include "utility/tree/TextRange.h"

#include <QString>
#include <vector>

class EMAIL_Body;
class EMAIL_Entity;

namespace tarvomime {

/// Parses an entity, or a body, of which the `length` bytes of `data` from `start` on are the text,
/// with everything below it. With a `path`, `data` is the content of that file.
void parseEntity(EMAIL_Entity& entity, const char* data, int start, int length,
                 const QString& path);
void parseBody(EMAIL_Body& body, const char* data, int start, int length, const QString& path);

/// Parses without recursion: each multipart body whose parts are being taken waits on a list. A
/// message that nests as deep as its sender likes costs memory for its parts, never stack.
class TreeParser
{
public:
    /// For a component in memory: every text below it is a slice of `text`, its own text.
    explicit TreeParser(const QCString& text);
    /// For a component that is `range` of `data`, the content of the file `path`: bodies stay
    /// ranges of the file.
    TreeParser(const QString& path, const char* data, TextRange range);

    /// In memory the header is taken from `data`, the body from the entity's own text.
    void parse(EMAIL_Entity& entity, const char* data, TextRange range);
    /// In memory only a body without text of its own looks at `data`.
    void parse(EMAIL_Body& body, const char* data, TextRange range);

private:
    // A multipart body that is being cut.
    struct Level
    {
        EMAIL_Body* body;
        // From behind the last delimiter on.
        TextRange rest;
        DelimiterIndex::Matches delimiters;
    };
    // An entity whose text was found and not yet looked at.
    struct Pending
    {
        EMAIL_Entity* entity = nullptr;
        TextRange range;
    };

    bool inFile() const { return !mPath.isEmpty(); }
    QCString slice(TextRange range) const { return mText.mid(range.start, range.length()); }
    QCString headerText(const char* data, TextRange range) const;
    void run();
    void takeEntity(EMAIL_Entity& entity, const char* data, TextRange range);
    void takeBody(EMAIL_Body& body, const char* data, TextRange range);
    TextRange textRange(const EMAIL_Body& body) const;
    Delimiter nextDelimiter(Level& level);
    void startCutting(EMAIL_Body& body, TextRange range);
    void cutNextPart();
    void addPart(EMAIL_Body& body, TextRange range);

    QString mPath;
    QCString mText;
    const char* mData;
    DelimiterFinder mDelimiters;
    std::vector<Level> mLevels;
    Pending mPending;
};

} // namespace tarvomime
