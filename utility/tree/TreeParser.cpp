// SPDX-License-Identifier: MIT
#include "utility/tree/TreeParser.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/codec/MediaTypes.h"
#include "utility/tree/BodyChildren.h"
#include "utility/tree/EntitySplit.h"

#include <limits>
#include <utility>

namespace tarvomime {

namespace {

constexpr int maxPosition = std::numeric_limits<int>::max();

const EMAIL_ContentType* contentTypeOf(const EMAIL_Body& body)
{
    const auto* entity = dynamic_cast<const EMAIL_Entity*>(body.mParent);
    return entity == nullptr ? nullptr : entity->mHeader->getContentType();
}

// A body in memory can reach this with a range that it kept from another time: what lies outside
// the given bytes is left alone.
void narrowRange(EMAIL_Body& body, const char* data, TextRange given)
{
    const bool isInside =
        body.mLength > 0 && body.mOffset >= given.start && body.mLength <= given.end - body.mOffset;
    if (!isInside)
        return;
    const TextRange kept = withoutLineBreaks(data, {body.mOffset, body.mOffset + body.mLength});
    body.mOffset = kept.start;
    body.mLength = kept.length();
}

template <class Component>
void parseComponent(Component& component, const char* data, int start, int length,
                    const QString& path)
{
    const bool isRange = start >= 0 && length >= 0 && start <= maxPosition - length;
    const TextRange range = isRange ? TextRange{start, start + length} : TextRange{};
    if (path.isEmpty())
        TreeParser(component.mString).parse(component, data, range);
    else
        TreeParser(path, data, range).parse(component, data, range);
}

} // namespace

void parseEntity(EMAIL_Entity& entity, const char* data, int start, int length, const QString& path)
{
    parseComponent(entity, data, start, length, path);
}

void parseBody(EMAIL_Body& body, const char* data, int start, int length, const QString& path)
{
    parseComponent(body, data, start, length, path);
}

TreeParser::TreeParser(const QCString& text)
    : mText(text), mData(mText.begin()), mDelimiters(mData, {0, mText.length()})
{
}

TreeParser::TreeParser(const QString& path, const char* data, TextRange range)
    : mPath(path), mData(data), mDelimiters(data, range)
{
}

void TreeParser::parse(EMAIL_Entity& entity, const char* data, TextRange range)
{
    takeEntity(entity, data, range);
    run();
}

void TreeParser::parse(EMAIL_Body& body, const char* data, TextRange range)
{
    takeBody(body, data, range);
    run();
}

// What a step leaves behind is either one entity to look at or an open level, never a call.
void TreeParser::run()
{
    for (;;) {
        if (mPending.entity != nullptr) {
            const Pending next = std::exchange(mPending, {});
            takeEntity(*next.entity, mData, next.range);
        } else if (!mLevels.empty()) {
            cutNextPart();
        } else {
            return;
        }
    }
}

QCString TreeParser::headerText(const char* data, TextRange range) const
{
    return !inFile() && data == mData ? slice(range) : QCString(data + range.start, range.length());
}

void TreeParser::takeEntity(EMAIL_Entity& entity, const char* data, TextRange range)
{
    const EntitySplit split = splitEntity(viewOf(data, range));
    entity.mHeader->setMessage(
        headerText(data, {range.start + split.headerStart, range.start + split.headerEnd}));
    entity.mHeader->parse();

    const int bodyStart = range.start + split.bodyStart;
    if (inFile()) {
        if (bodyStart < range.end)
            takeBody(*entity.mBody, data, {bodyStart, range.end});
        return;
    }
    if (entity.mString.isEmpty())
        return;
    const int textEnd = static_cast<int>(entity.mString.end() - mData);
    if (bodyStart >= textEnd)
        return;
    entity.mBody->setMessage(slice({bodyStart, textEnd}));
    takeBody(*entity.mBody, mData, {bodyStart, textEnd});
}

void TreeParser::takeBody(EMAIL_Body& body, const char* data, TextRange range)
{
    body.mInMemory = !inFile();
    if (inFile()) {
        body.mFile = mPath;
        body.mEncoded = true;
        body.mOffset = range.start;
        body.mLength = range.length();
    }
    const EMAIL_ContentType* type = contentTypeOf(body);
    if (type == nullptr)
        return;
    if (type->mTypeEnum == TYPE_MESSAGE && body.mInMemory) {
        mPending = {&createEnclosedMessage(body), textRange(body)};
    } else if (isContainer({type->mTypeEnum, type->mSubTypeEnum})) {
        body.mBoundary = type->mBoundary;
        startCutting(body, body.mInMemory ? textRange(body) : range);
    } else if (!body.mString.isEmpty() && body.mInMemory) {
        body.mString = slice(withoutLineBreaks(mData, textRange(body)));
    } else {
        narrowRange(body, data, range);
    }
}

TextRange TreeParser::textRange(const EMAIL_Body& body) const
{
    if (body.mString.isEmpty())
        return {};
    const auto start = static_cast<int>(body.mString.begin() - mData);
    return {start, start + body.mString.length()};
}

Delimiter TreeParser::nextDelimiter(Level& level)
{
    return mDelimiters.find(level.rest, level.body->mBoundary.view(), level.delimiters);
}

void TreeParser::startCutting(EMAIL_Body& body, TextRange range)
{
    Level level{&body, range, {}};
    const Delimiter first = nextDelimiter(level);
    if (!first.found || first.closing)
        return;
    level.rest.start = first.next;
    mLevels.push_back(level);
}

// Text behind the last delimiter is no part: the body may have been cut off anywhere.
void TreeParser::cutNextPart()
{
    Level& level = mLevels.back();
    EMAIL_Body& body = *level.body;
    const int partStart = level.rest.start;
    const Delimiter delimiter = nextDelimiter(level);
    level.rest.start = delimiter.next;
    if (!delimiter.found || delimiter.closing)
        mLevels.pop_back();
    if (delimiter.found)
        addPart(body, withoutLineBreaks(mData, {partStart, delimiter.start}));
}

void TreeParser::addPart(EMAIL_Body& body, TextRange range)
{
    if (!range.isEmpty())
        mPending = {&createPart(body, inFile() ? QCString() : slice(range)), range};
}

} // namespace tarvomime
