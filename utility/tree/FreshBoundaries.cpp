// SPDX-License-Identifier: MIT
// A boundary is matched as a prefix of what follows "--" at a line's start. All containers are held
// against all bodies, although only those around a body could cut it: one pass over the bytes then
// serves them all.
#include "utility/tree/FreshBoundaries.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/codec/MediaTypes.h"
#include "utility/codec/TransferEncoding.h"
#include "utility/header/BoundaryForm.h"

#include <QFile>
#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tarvomime {

namespace {

constexpr std::size_t kHyphens = kBoundaryHyphens;
constexpr std::size_t kDrawnLength = kBoundaryHyphens + kBoundaryDigits;
constexpr std::string_view kDelimiterStart = "--";
constexpr int kBlock = 32768;

using Texts = std::set<std::string, std::less<>>;

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

bool couldBeDrawn(std::string_view text)
{
    const std::string_view hyphens = text.substr(0, kHyphens);
    return text.size() >= kDrawnLength && hyphens.find_first_not_of('-') == std::string_view::npos;
}

// The one of `texts`, none of which begins another, that `text` begins with; or their end.
Texts::const_iterator startOf(const Texts& texts, std::string_view text)
{
    const auto behind = texts.upper_bound(text);
    if (behind == texts.begin())
        return texts.end();
    const auto before = std::prev(behind);
    return startsWith(text, *before) ? before : texts.end();
}

// Whether one of `texts` begins with `text`, or `text` with one of them.
bool clashes(const Texts& texts, std::string_view text)
{
    const auto behind = texts.lower_bound(text);
    return (behind != texts.end() && startsWith(*behind, text)) ||
           startOf(texts, text) != texts.end();
}

// Reads bodies block by block and keeps what stands behind "--" at a line's start: boundaries that
// are in use, and what could be drawn.
class TakenLines
{
public:
    explicit TakenLines(const std::vector<EMAIL_ContentType*>& containers)
    {
        Texts all;
        for (const EMAIL_ContentType* type : containers)
            all.emplace(type->mBoundary.view());
        all.erase(std::string());
        for (const std::string& boundary : all) {
            if (startOf(mUsed, boundary) == mUsed.end())
                mUsed.insert(boundary);
            mLongest = std::max(mLongest, boundary.size());
        }
    }

    void read(std::string_view bytes)
    {
        while (!bytes.empty()) {
            const std::size_t lineFeed = std::min(bytes.find('\n'), bytes.size());
            keepHead(bytes.substr(0, lineFeed));
            if (lineFeed == bytes.size())
                return;
            endLine();
            bytes.remove_prefix(lineFeed + 1);
        }
    }

    // Ends the last line of a body too.
    void endLine()
    {
        if (startsWith(mHead, kDelimiterStart))
            note(std::string_view(mHead).substr(kDelimiterStart.size()));
        mHead.clear();
    }

    bool isTaken(std::string_view boundary) const { return clashes(mTaken, boundary); }

private:
    // Lines are longer than anything that is looked for.
    void keepHead(std::string_view bytes)
    {
        const std::size_t limit = mLongest + kDelimiterStart.size();
        mHead.append(bytes.substr(0, limit - std::min(limit, mHead.size())));
    }

    void note(std::string_view text)
    {
        const auto used = startOf(mUsed, text);
        if (used != mUsed.end())
            mTaken.insert(*used);
        if (couldBeDrawn(text))
            mTaken.emplace(text.substr(0, kDrawnLength));
    }

    Texts mUsed;
    Texts mTaken;
    std::size_t mLongest = kDrawnLength;
    std::string mHead;
};

struct Tree
{
    std::vector<EMAIL_ContentType*> containers;
    std::vector<const EMAIL_Entity*> leaves;
};

Tree treeBelow(EMAIL_Entity& root)
{
    Tree tree;
    std::vector<const EMAIL_Entity*> entities{&root};
    while (!entities.empty()) {
        const EMAIL_Entity* entity = entities.back();
        entities.pop_back();
        if (entity == nullptr)
            continue;
        EMAIL_ContentType* type = entity->mHeader->getContentType();
        if (type == nullptr || !isContainer({type->mTypeEnum, type->mSubTypeEnum})) {
            tree.leaves.push_back(entity);
            continue;
        }
        tree.containers.push_back(type);
        const auto& parts = entity->mBody->mBodyParts;
        entities.insert(entities.end(), parts.begin(), parts.end());
    }
    return tree;
}

bool openAt(int offset, const QString& path, QFile& file)
{
    // Qt prints a warning about names like these.
    if (path.isEmpty() || path.contains(QChar()))
        return false;
    file.setFileName(path);
    return file.open(QIODevice::ReadOnly) && file.seek(offset);
}

bool readBlocks(QFile& file, qint64 length, TakenLines& lines)
{
    for (qint64 left = length; left > 0;) {
        const QByteArray block = file.read(std::min<qint64>(left, kBlock));
        if (block.isEmpty())
            return false;
        lines.read(viewOf(block));
        left -= block.size();
    }
    return true;
}

// Lines that are made by the encoding begin where those of the content do not.
bool readQuotedPrintable(QFile& file, qint64 length, TakenLines& lines)
{
    const QByteArray content = file.read(length);
    QByteArray written;
    encodeTransfer(content, written, CTE_QUOTED_PRINTABLE);
    lines.read(viewOf(written));
    return content.size() == length;
}

bool readFile(const EMAIL_Entity& entity, TakenLines& lines)
{
    const EMAIL_Body& body = *entity.mBody;
    const int encoding = body.mEncoded ? int(CTE_UNKNOWN) : entity.mHeader->getCte();
    // It has no hyphens.
    if (encoding == CTE_BASE64 || body.mLength <= 0)
        return true;
    QFile file;
    if (!openAt(body.mEncoded ? body.mOffset : 0, body.mFile, file))
        return false;
    return encoding == CTE_QUOTED_PRINTABLE ? readQuotedPrintable(file, body.mLength, lines)
                                            : readBlocks(file, body.mLength, lines);
}

bool readBody(const EMAIL_Entity& entity, TakenLines& lines)
{
    if (entity.mBody->mInMemory)
        lines.read(entity.mBody->mString.view());
    else if (!readFile(entity, lines))
        return false;
    lines.endLine();
    return true;
}

} // namespace

int drawFreshBoundaries(EMAIL_Entity& root)
{
    const Tree tree = treeBelow(root);
    TakenLines lines(tree.containers);
    for (const EMAIL_Entity* leaf : tree.leaves) {
        if (!tree.containers.empty() && !readBody(*leaf, lines))
            return -1;
    }
    Texts boundaries;
    for (EMAIL_ContentType* type : tree.containers) {
        while (type->mBoundary.isEmpty() || lines.isTaken(type->mBoundary.view()) ||
               clashes(boundaries, type->mBoundary.view()))
            type->createBoundary();
        boundaries.emplace(type->mBoundary.view());
    }
    return 0;
}

} // namespace tarvomime
