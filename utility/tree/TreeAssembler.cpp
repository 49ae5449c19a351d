// SPDX-License-Identifier: MIT
#include "utility/tree/TreeAssembler.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Entity.h"
#include "utility/EMAIL_Header.h"
#include "utility/codec/MediaTypes.h"
#include "utility/tree/AssemblySinks.h"

#include <vector>

namespace tarvomime {

namespace {

// Three characters or fewer get no separator: a header of that size holds no field line.
bool needsSeparator(std::string_view header)
{
    const std::size_t length = header.size();
    return length > 3 && (header[length - 1] == '\n' || header[length - 3] == '\n');
}

// Walks the tree with a stack of its own and writes the text of each component as it passes.
template <class Sink>
class Assembly
{
public:
    explicit Assembly(Sink& sink) : mSink(sink) {}

    bool entity(EMAIL_Entity& root) { return mSink.finish(enterEntity(root) && run()); }
    bool body(EMAIL_Body& root) { return mSink.finish(enterBody(root, nullptr, 0) && run()); }

private:
    struct Level
    {
        EMAIL_Entity* entity;
        EMAIL_Body* body;
        qint64 entityStart;
        qint64 bodyStart;
        int nextPart;
        bool multipart;
    };

    bool write(const QCString& text) { return mSink.write(text.view()); }
    bool writeDelimiter(const EMAIL_Body& body, std::string_view end)
    {
        return mSink.write("--") && write(body.mBoundary) && mSink.write(end);
    }

    bool enterEntity(EMAIL_Entity& entity)
    {
        if (entity.mHeader == nullptr)
            return false;
        entity.mString = QCString::fromLiteral("");
        const qint64 start = mSink.position();
        const auto header = mSink.writeHeader(*entity.mHeader);
        if (!header || (needsSeparator(*header) && !mSink.write("\r\n")))
            return false;
        if (entity.mBody != nullptr)
            return enterBody(*entity.mBody, &entity, start);
        mLevels.push_back({&entity, nullptr, start, start, 0, false});
        return true;
    }

    bool enterBody(EMAIL_Body& body, EMAIL_Entity* entity, qint64 entityStart)
    {
        auto* parent = dynamic_cast<EMAIL_Entity*>(body.mParent);
        if (parent == nullptr || parent->mHeader == nullptr)
            return false;
        const EMAIL_ContentType* type = parent->mHeader->contentType();
        const bool multipart = isContainer({type->mTypeEnum, type->mSubTypeEnum});
        mLevels.push_back({entity, &body, entityStart, mSink.position(), 0, multipart});
        if (!multipart)
            return mSink.writeLeaf(body, *parent->mHeader);
        body.mString = QCString::fromLiteral("");
        body.mBoundary = type->mBoundary;
        return true;
    }

    bool run()
    {
        while (!mLevels.empty()) {
            Level& level = mLevels.back();
            const bool done = !level.multipart || level.nextPart == level.body->numBodyParts();
            if (!(done ? leave() : enterPart(level)))
                return false;
        }
        return true;
    }

    bool enterPart(Level& level)
    {
        EMAIL_BodyPart* part = level.body->bodyPart(level.nextPart++);
        return part == nullptr || (writeDelimiter(*level.body, "\r\n") && enterEntity(*part));
    }

    bool leave()
    {
        const Level level = mLevels.back();
        mLevels.pop_back();
        if (level.multipart && !writeDelimiter(*level.body, "--\r\n"))
            return false;
        // A body without text stays as it is, null or empty.
        if (level.body != nullptr && !(level.body->mString.isEmpty() && !level.multipart))
            mSink.handOut(*level.body, level.bodyStart);
        if (level.entity != nullptr)
            mSink.handOut(*level.entity, level.entityStart);
        return mLevels.empty() || mSink.write("\r\n");
    }

    Sink& mSink;
    std::vector<Level> mLevels;
};

} // namespace

int assembleEntity(EMAIL_Entity& entity, QFile* file)
{
    if (file == nullptr) {
        MemoryAssembly sink;
        return Assembly(sink).entity(entity) ? 0 : -1;
    }
    FileAssembly sink(*file);
    return Assembly(sink).entity(entity) ? 0 : -1;
}

int assembleBody(EMAIL_Body& body, QFile* file)
{
    if (file == nullptr) {
        MemoryAssembly sink;
        return Assembly(sink).body(body) ? 0 : -1;
    }
    FileAssembly sink(*file);
    return Assembly(sink).body(body) ? 0 : -1;
}

} // namespace tarvomime
