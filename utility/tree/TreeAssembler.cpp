// SPDX-License-Identifier: MIT
#include "utility/tree/TreeAssembler.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/codec/MediaTypes.h"
#include "utility/tree/AssemblySinks.h"
#include "utility/tree/EntityMediaType.h"
#include "utility/tree/WorkList.h"

#include <new>
#include <typeinfo>

namespace tarvomime {

namespace {

// Three characters or fewer get no separator: a header of that size holds no field line.
bool needsSeparator(std::string_view header)
{
    const std::size_t length = header.size();
    return length > 3 && (header[length - 1] == '\n' || header[length - 3] == '\n');
}

// Whether a body of that type holds parts; its boundary is then the one that the type has by now.
bool takeType(const EMAIL_ContentType& type, EMAIL_Body& body)
{
    const bool isMultipart = isContainer({type.mTypeEnum, type.mSubTypeEnum});
    if (isMultipart)
        body.mBoundary = type.mBoundary;
    return isMultipart;
}

// A field of another class that an application has added under this name is only read: it stays
// the application's.
bool takeType(EMAIL_Header& header, EMAIL_Body& body)
{
    if (const EMAIL_ContentType* type = header.getContentType())
        return takeType(*type, body);
    EMAIL_ContentType read;
    return takeType(readForeignType(header, read) ? read : *header.contentType(), body);
}

struct Level
{
    EMAIL_Entity* entity;
    // Null when it was written already, or is not there.
    EMAIL_Body* body;
    int entityStart;
    int bodyStart;
    int nextPart;
    bool multipart;
};

// Walks the tree with a stack of its own and writes the text of each component as it passes.
template <class Sink>
class Assembly
{
public:
    Assembly(Sink& sink, WorkList<Level>& levels) : mSink(sink), mLevels(levels) {}

    bool run(EMAIL_Entity& root) { return enterEntity(root) && run(); }
    bool run(EMAIL_Body& root) { return enterBody(root, nullptr, 0) && run(); }

private:
    // The entity whose header says what the body is: mostly the one that it was reached from.
    static EMAIL_Entity* ownerOf(const EMAIL_Body& body, EMAIL_Entity* entity)
    {
        return body.mParent == entity ? entity : dynamic_cast<EMAIL_Entity*>(body.mParent);
    }

    bool writeDelimiter(const EMAIL_Body& body, std::string_view end)
    {
        return mSink.write("--") && mSink.write(body.mBoundary.view()) && mSink.write(end);
    }
    bool enterEntity(EMAIL_Entity& entity)
    {
        if (entity.mHeader == nullptr)
            return false;
        mSink.begin(entity);
        const int start = mSink.position();
        const auto header = mSink.writeHeader(*entity.mHeader);
        if (!header || (needsSeparator(*header) && !mSink.write("\r\n")))
            return false;
        EMAIL_Body* const body = entity.mBody;
        if constexpr (Sink::kInMemory) {
            if (body != nullptr && typeid(*body) != typeid(EMAIL_Body))
                return mSink.writeForeign(*body) && enterWithoutBody(entity, start);
            // Nobody says what it is: its text stands.
            if (body != nullptr && ownerOf(*body, &entity) == nullptr)
                return mSink.writeLeaf(*body, *entity.mHeader) && enterWithoutBody(entity, start);
        }
        return body != nullptr ? enterBody(*body, &entity, start) : enterWithoutBody(entity, start);
    }

    bool enterWithoutBody(EMAIL_Entity& entity, int start)
    {
        return mLevels.push({&entity, nullptr, start, start, 0, false});
    }

    bool enterBody(EMAIL_Body& body, EMAIL_Entity* entity, int entityStart)
    {
        EMAIL_Entity* parent = ownerOf(body, entity);
        if (parent == nullptr || parent->mHeader == nullptr)
            return false;
        const bool multipart = takeType(*parent->mHeader, body);
        if (!mLevels.push({entity, &body, entityStart, mSink.position(), 0, multipart}))
            return false;
        if (!multipart)
            return mSink.writeLeaf(body, *parent->mHeader);
        mSink.begin(body);
        return true;
    }

    bool run()
    {
        while (Level* level = mLevels.top()) {
            const bool done = !level->multipart || level->nextPart >= level->body->numBodyParts();
            if (!(done ? leave() : enterPart(*level)))
                return false;
        }
        return true;
    }

    bool enterPart(Level& level)
    {
        EMAIL_BodyPart* part = level.body->bodyPart(level.nextPart++);
        if (part == nullptr)
            return true;
        if (!writeDelimiter(*level.body, "\r\n"))
            return false;
        if constexpr (Sink::kInMemory) {
            if (typeid(*part) != typeid(EMAIL_BodyPart))
                return mSink.writeForeign(*part) && mSink.write("\r\n");
        }
        return enterEntity(*part);
    }

    bool leave()
    {
        const Level level = mLevels.take();
        if (level.multipart && !writeDelimiter(*level.body, "--\r\n"))
            return false;
        // A body without text stays as it is, null or empty.
        if (level.body != nullptr && !(level.body->mString.isEmpty() && !level.multipart))
            mSink.handOut(*level.body, level.bodyStart);
        if (level.entity != nullptr)
            mSink.handOut(*level.entity, level.entityStart);
        return mLevels.isEmpty() || mSink.write("\r\n");
    }

    Sink& mSink;
    WorkList<Level>& mLevels;
};

template <class Component>
bool assembleInMemory(Component& root, int limit)
{
    MeasuringAssembly measured(limit);
    // One for both: the walk that hands texts out needs no memory that the first did not get.
    WorkList<Level> levels;
    if (!Assembly(measured, levels).run(root))
        return false;
    MemoryAssembly sink(measured.position());
    return Assembly(sink, levels).run(root);
}

template <class Component>
bool assembleToFile(Component& root, QFile& file)
{
    FileAssembly sink(file);
    WorkList<Level> levels;
    const bool isComplete = Assembly(sink, levels).run(root);
    return sink.flush() && isComplete;
}

template <class Component>
int assemble(Component& root, QFile* file, int limit)
{
    try {
        const bool isDone =
            file == nullptr ? assembleInMemory(root, limit) : assembleToFile(root, *file);
        return isDone ? 0 : -1;
    } catch (const std::bad_alloc&) {
        return -1;
    }
}

} // namespace

int assembleEntity(EMAIL_Entity& entity, QFile* file, int limit)
{
    return assemble(entity, file, limit);
}

int assembleBody(EMAIL_Body& body, QFile* file, int limit)
{
    return assemble(body, file, limit);
}

// Where there is no memory to read the type, the parts themselves tell.
bool isRebuilt(EMAIL_Body& body)
{
    try {
        const auto* owner = dynamic_cast<EMAIL_Entity*>(body.mParent);
        return owner != nullptr && owner->mHeader != nullptr && takeType(*owner->mHeader, body);
    } catch (const std::bad_alloc&) {
        return body.numBodyParts() > 0;
    }
}

} // namespace tarvomime
