// SPDX-License-Identifier: MIT
#include "utility/tree/TreeParser.h"

#include "types/AllocationCheck.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/codec/MediaTypes.h"
#include "utility/tree/Delimiter.h"
#include "utility/tree/EntitySplit.h"
#include "utility/tree/ParseSources.h"
#include "utility/tree/TypeReader.h"
#include "utility/tree/WorkList.h"

#include <limits>
#include <new>
#include <typeinfo>
#include <utility>

namespace tarvomime {

namespace {

constexpr const char* kBodySource = "utility/EMAIL_Body.cpp";
constexpr const char* kBodyParse = "void EMAIL_Body::parse(const char*, int, int, const QString&)";

const EMAIL_Header* headerOf(const EMAIL_Body& body)
{
    const auto* entity = dynamic_cast<const EMAIL_Entity*>(body.mParent);
    return entity == nullptr ? nullptr : entity->mHeader;
}

// A message that was there is replaced.
EMAIL_Message& createEnclosedMessage(EMAIL_Body& body)
{
    delete std::exchange(body.mMessage, nullptr);
    body.mMessage = new (std::nothrow) EMAIL_Message(body.mString, &body);
    TARVOMIME_CHECK_ALLOCATION(body.mMessage, "mMessage", kBodySource, kBodyParse);
    return *body.mMessage;
}

// Walks the text without recursion: each multipart body whose parts are being taken waits on a
// list. A message that nests as deep as its sender likes costs memory for its parts, never stack.
template <class Source>
class TreeParser
{
public:
    explicit TreeParser(Source source)
        : mSource(std::move(source)), mDelimiters(mSource.data, mSource.whole)
    {
    }

    // The header lies in `range`; the body goes on to the end of the source.
    void parse(EMAIL_Entity& entity, TextRange range)
    {
        takeEntity(entity, range, mSource.whole.end);
        run();
    }
    void parseBodyOf(EMAIL_Entity& entity, int start)
    {
        takeBodyOf(entity, {start, mSource.whole.end});
        run();
    }
    void parse(EMAIL_Body& body)
    {
        takeBody(body, headerOf(body), mSource.whole);
        run();
    }

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

    // What a step leaves behind is either one entity to look at or an open level, never a call.
    void run()
    {
        for (;;) {
            if (mPending.entity != nullptr) {
                const Pending next = std::exchange(mPending, {});
                takeEntity(*next.entity, next.range, next.range.end);
            } else if (Level* level = mLevels.top()) {
                cutNextPart(*level);
            } else {
                return;
            }
        }
    }

    void takeEntity(EMAIL_Entity& entity, TextRange range, int bodyEnd)
    {
        const EntitySplit split = splitEntity(mSource.data, range);
        entity.mHeader->setMessage(mSource.headerText(split.header));
        entity.mHeader->parse();
        takeBodyOf(entity, {split.bodyStart, bodyEnd});
    }

    void takeBodyOf(EMAIL_Entity& entity, TextRange range)
    {
        EMAIL_Body& body = *entity.mBody;
        if (range.isEmpty())
            return;
        if constexpr (Source::kInMemory) {
            body.setMessage(mSource.bodyText(range));
            if (typeid(body) != typeid(EMAIL_Body)) {
                body.parse();
                mTypes.forget();
                return;
            }
        }
        takeBody(body, body.mParent == &entity ? entity.mHeader : headerOf(body), range);
    }

    void takeBody(EMAIL_Body& body, const EMAIL_Header* header, TextRange range)
    {
        mSource.place(body, range);
        const EMAIL_ContentType* type = header == nullptr ? nullptr : mTypes.read(*header);
        if (type == nullptr)
            return;
        if (Source::kInMemory && type->mTypeEnum == TYPE_MESSAGE) {
            mPending = {&createEnclosedMessage(body), range};
        } else if (isContainer({type->mTypeEnum, type->mSubTypeEnum})) {
            body.mBoundary = type->mBoundary;
            startCutting(body, range);
        } else {
            mSource.trim(body, range);
        }
    }

    Delimiter nextDelimiter(Level& level)
    {
        return mDelimiters.find(level.rest, level.body->mBoundary.view(), level.delimiters);
    }

    void startCutting(EMAIL_Body& body, TextRange range)
    {
        Level level{&body, range, {}};
        const Delimiter first = nextDelimiter(level);
        if (!first.found || first.closing)
            return;
        level.rest.start = first.next;
        // No part is made without a place for the rest of its body.
        TARVOMIME_CHECK_ALLOCATION(mLevels.push(level), "bodyPart", kBodySource, kBodyParse);
    }

    // Text behind the last delimiter is no part: the body may have been cut off anywhere.
    void cutNextPart(Level& level)
    {
        EMAIL_Body& body = *level.body;
        const int partStart = level.rest.start;
        const Delimiter delimiter = nextDelimiter(level);
        level.rest.start = delimiter.next;
        if (!delimiter.found || delimiter.closing)
            mLevels.take();
        if (delimiter.found)
            addPart(body, withoutLineBreaks(mSource.data, {partStart, delimiter.start}));
    }

    void addPart(EMAIL_Body& body, TextRange range)
    {
        if (range.isEmpty())
            return;
        auto* bodyPart = new (std::nothrow) EMAIL_BodyPart(mSource.partText(range), &body);
        TARVOMIME_CHECK_ALLOCATION(bodyPart != nullptr && body.mBodyParts.append(bodyPart),
                                   "bodyPart", kBodySource, kBodyParse);
        mPending = {bodyPart, range};
    }

    Source mSource;
    DelimiterFinder mDelimiters;
    TypeReader mTypes;
    WorkList<Level> mLevels;
    Pending mPending;
};

// What lies outside the numbers of the interface is no range at all.
TextRange rangeOf(int start, int length)
{
    const bool isRange =
        start >= 0 && length >= 0 && start <= std::numeric_limits<int>::max() - length;
    return isRange ? TextRange{start, start + length} : TextRange{};
}

// An entity whose header is shown by the caller: its body is its own text from there on.
void parseWithHeaderOf(EMAIL_Entity& entity, const char* data, TextRange range)
{
    const EntitySplit split = splitEntity(data, range);
    entity.mHeader->setMessage(QCString(data + split.header.start, split.header.length()));
    entity.mHeader->parse();
    TreeParser(MemorySource(entity.mString)).parseBodyOf(entity, split.bodyStart);
}

// A body without text of its own may be a range that it kept from another time: what lies outside
// the given bytes is left alone.
void narrowKeptRange(EMAIL_Body& body, const char* data, TextRange given)
{
    const EMAIL_Header* header = headerOf(body);
    const EMAIL_ContentType* type = header == nullptr ? nullptr : header->getContentType();
    if (type == nullptr || type->mTypeEnum == TYPE_MESSAGE ||
        isContainer({type->mTypeEnum, type->mSubTypeEnum}))
        return;
    const bool isInside =
        body.mLength > 0 && body.mOffset >= given.start && body.mLength <= given.end - body.mOffset;
    if (!isInside)
        return;
    const TextRange kept = withoutLineBreaks(data, {body.mOffset, body.mOffset + body.mLength});
    body.mOffset = kept.start;
    body.mLength = kept.length();
}

} // namespace

void parseEntity(EMAIL_Entity& entity, const char* data, int start, int length, const QString& path)
{
    const TextRange range = rangeOf(start, length);
    if (!path.isEmpty())
        TreeParser(FileSource{path, data, range}).parse(entity, range);
    else if (data == entity.mString.begin())
        TreeParser(MemorySource(entity.mString)).parse(entity, range);
    else
        parseWithHeaderOf(entity, data, range);
}

void parseBody(EMAIL_Body& body, const char* data, int start, int length, const QString& path)
{
    const TextRange range = rangeOf(start, length);
    if (!path.isEmpty()) {
        TreeParser(FileSource{path, data, range}).parse(body);
        return;
    }
    const bool hasText = !body.mString.isEmpty();
    TreeParser(MemorySource(body.mString)).parse(body);
    if (!hasText)
        narrowKeptRange(body, data, range);
}

} // namespace tarvomime
