// SPDX-License-Identifier: MIT
#include "utility/tree/TreeParser.h"

#include "types/Ascii.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_Util.h"
#include "utility/tree/Container.h"
#include "utility/tree/Delimiter.h"
#include "utility/tree/EntitySplit.h"

#include <functional>

namespace tarvomime {

namespace {

struct Range
{
    int start;
    int length;
};

std::string_view viewOf(const char* data, Range range)
{
    return {data + range.start, static_cast<std::size_t>(range.length)};
}

Range withoutLineBreaks(const char* data, Range range)
{
    while (range.length > 0 && isLineBreak(data[range.start])) {
        ++range.start;
        --range.length;
    }
    while (range.length > 0 && isLineBreak(data[range.start + range.length - 1]))
        --range.length;
    return range;
}

// The range as a slice of `text` where it lies inside it, otherwise as a copy.
QCString sliceOf(const QCString& text, const char* data, Range range)
{
    const char* first = data + range.start;
    const std::less_equal<> notAfter;
    if (notAfter(text.begin(), first) && notAfter(first + range.length, text.end()))
        return text.mid(static_cast<int>(first - text.begin()), range.length);
    return {first, range.length};
}

} // namespace

TreeParser::TreeParser(const QString& path) : mPath(path) {}

void TreeParser::addEntity(EMAIL_Entity& entity, const char* data, int start, int length)
{
    mTasks.push_back({&entity, data, start, length});
}

void TreeParser::run()
{
    while (!mTasks.empty()) {
        const Task task = mTasks.front();
        mTasks.pop_front();
        parseEntity(task);
    }
}

void TreeParser::parseEntity(const Task& task)
{
    EMAIL_Entity& entity = *task.entity;
    const EntitySplit split = splitEntity(viewOf(task.data, {task.start, task.length}));
    const Range header{task.start + split.headerStart, split.headerEnd - split.headerStart};
    entity.mHeader->setMessage(inFile() ? QCString(task.data + header.start, header.length)
                                        : sliceOf(entity.mString, task.data, header));
    entity.mHeader->parse();

    if (inFile()) {
        if (split.bodyStart < task.length)
            addBody(*entity.mBody, task.data, task.start + split.bodyStart,
                    task.length - split.bodyStart);
        return;
    }
    const QCString body = entity.mString.mid(task.start + split.bodyStart);
    if (body.isEmpty())
        return;
    entity.mBody->setMessage(body);
    addBody(*entity.mBody, body.begin(), 0, body.length());
}

void TreeParser::addBody(EMAIL_Body& body, const char* data, int start, int length)
{
    body.mInMemory = !inFile();
    if (inFile()) {
        body.mFile = mPath;
        body.mEncoded = true;
        body.mOffset = start;
        body.mLength = length;
    }
    const auto* entity = dynamic_cast<const EMAIL_Entity*>(body.mParent);
    const EMAIL_ContentType* type = entity == nullptr ? nullptr : entity->mHeader->getContentType();
    if (type == nullptr)
        return;
    if (type->mTypeEnum == TYPE_MESSAGE && body.mInMemory) {
        addEnclosedMessage(body);
    } else if (isContainer(type->mTypeEnum, type->mSubTypeEnum)) {
        body.mBoundary = type->mBoundary;
        cutIntoParts(body, data, start, length);
    } else if (body.mInMemory) {
        const Range kept = withoutLineBreaks(body.mString.begin(), {0, body.mString.length()});
        body.mString = body.mString.mid(kept.start, kept.length);
    } else {
        const Range kept = withoutLineBreaks(data, {start, length});
        body.mOffset = kept.start;
        body.mLength = kept.length;
    }
}

void TreeParser::addEnclosedMessage(EMAIL_Body& body)
{
    body.createMessage();
    addEntity(*body.mMessage, body.mString.begin(), 0, body.mString.length());
}

void TreeParser::cutIntoParts(EMAIL_Body& body, const char* data, int start, int length)
{
    const std::string_view text = viewOf(data, {start, length});
    const std::string_view boundary = body.mBoundary.view();
    Delimiter delimiter = findDelimiter(text, 0, boundary);
    while (delimiter.found && !delimiter.closing) {
        const int partStart = delimiter.next;
        delimiter = findDelimiter(text, partStart, boundary);
        if (!delimiter.found)
            return;
        addPart(body, data, start + partStart, delimiter.start - partStart);
    }
}

void TreeParser::addPart(EMAIL_Body& body, const char* data, int start, int length)
{
    const Range part = withoutLineBreaks(data, {start, length});
    if (part.length <= 0)
        return;
    const QCString text = inFile() ? QCString() : sliceOf(body.mString, data, part);
    auto* bodyPart = new EMAIL_BodyPart(text, &body);
    body.mBodyParts.append(bodyPart);
    if (inFile())
        addEntity(*bodyPart, data, part.start, part.length);
    else
        addEntity(*bodyPart, bodyPart->mString.begin(), 0, bodyPart->mString.length());
}

} // namespace tarvomime
