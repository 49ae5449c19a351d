// SPDX-License-Identifier: MIT
// A boundary is matched as a prefix of what follows "--" at a line's start. All containers are held
// against all bodies, although only those around a body could cut it: one pass over the bytes then
// serves them all.
//
// Drawing ends: what is drawn meets only a line or a boundary that begins with all of it, and of
// those there are as many as were read. A boundary that what is drawn could begin with is drawn
// again itself.
#include "utility/tree/FreshBoundaries.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/codec/MediaTypes.h"
#include "utility/codec/TransferEncoding.h"
#include "utility/file/BodyBytes.h"
#include "utility/header/BoundaryForm.h"
#include "utility/text/Room.h"
#include "utility/tree/EntityMediaType.h"

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
// Beside as many draws as can meet something: another thread may draw, and seed what draws.
constexpr std::size_t kSpareDraws = 1000;

using Texts = std::set<std::string, std::less<>>;

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

bool beginsLikeADrawnOne(std::string_view text)
{
    const std::string_view hyphens = text.substr(0, kHyphens);
    const std::string_view digits = text.substr(hyphens.size(), kBoundaryDigits);
    return hyphens.find_first_not_of('-') == std::string_view::npos &&
           digits.find_first_not_of(kBoundaryDigitSet) == std::string_view::npos;
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

// What the containers of a tree say, and the bodies between them.
struct Tree
{
    std::vector<EMAIL_ContentType*> containers;
    // Those of fields that are the application's and are never written.
    std::vector<QCString> fixedBoundaries;
    std::vector<const EMAIL_Entity*> leaves;

    bool hasContainers() const { return !containers.empty() || !fixedBoundaries.empty(); }
};

// Reads bodies block by block and keeps what stands behind "--" at a line's start: boundaries that
// are in use, and what could be drawn.
class TakenLines
{
public:
    explicit TakenLines(const Tree& tree)
    {
        Texts all;
        for (const EMAIL_ContentType* type : tree.containers)
            all.emplace(type->mBoundary.view());
        for (const QCString& boundary : tree.fixedBoundaries)
            all.emplace(boundary.view());
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

    // Whether a line begins with a boundary that is in use, or with what that one begins with.
    bool cuts(std::string_view boundary) const { return startOf(mTaken, boundary) != mTaken.end(); }
    // The same for one that was drawn.
    bool cutsDrawn(std::string_view boundary) const { return mDrawable.count(boundary) != 0; }
    std::size_t drawableCount() const { return mDrawable.size(); }

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
        if (text.size() >= kDrawnLength && beginsLikeADrawnOne(text))
            mDrawable.emplace(text.substr(0, kDrawnLength));
    }

    // None of which begins another.
    Texts mUsed;
    Texts mTaken;
    // All of one length.
    Texts mDrawable;
    std::size_t mLongest = kDrawnLength;
    std::string mHead;
};

// The containers' parts are walked as an assembly walks them.
Tree treeBelow(EMAIL_Entity& root)
{
    Tree tree;
    std::vector<const EMAIL_Entity*> entities{&root};
    while (!entities.empty()) {
        const EMAIL_Entity* entity = entities.back();
        entities.pop_back();
        if (entity == nullptr || entity->mHeader == nullptr || entity->mBody == nullptr)
            continue;
        EMAIL_ContentType* type = entity->mHeader->getContentType();
        EMAIL_ContentType foreign;
        const bool isForeign = type == nullptr && readForeignType(*entity->mHeader, foreign);
        const EMAIL_ContentType* says = isForeign ? &foreign : type;
        if (says == nullptr || !isContainer({says->mTypeEnum, says->mSubTypeEnum})) {
            tree.leaves.push_back(entity);
            continue;
        }
        if (isForeign)
            tree.fixedBoundaries.push_back(foreign.mBoundary);
        else
            tree.containers.push_back(type);
        const auto& parts = entity->mBody->mBodyParts;
        entities.insert(entities.end(), parts.begin(), parts.end());
    }
    return tree;
}

bool readBlocks(const BodyBytes& stored, TakenLines& lines)
{
    for (BodyBlocks blocks(stored); !blocks.atEnd();) {
        const auto block = blocks.next();
        if (!block)
            return false;
        lines.read(*block);
    }
    return true;
}

// Lines that are made by the encoding begin where those of the content do not.
bool readQuotedPrintable(const BodyBytes& stored, TakenLines& lines)
{
    const auto content = stored.all();
    if (!content)
        return false;
    QByteArray written;
    encodeTransfer(*content, written, CTE_QUOTED_PRINTABLE);
    lines.read(viewOf(written));
    // Nothing is written where there is no room for it.
    return !written.isEmpty();
}

bool readFile(const EMAIL_Entity& entity, TakenLines& lines)
{
    const EMAIL_Body& body = *entity.mBody;
    const int encoding = body.mEncoded ? int(CTE_UNKNOWN) : entity.mHeader->getCte();
    // It has no hyphens.
    if (encoding == CTE_BASE64 || body.mLength <= 0)
        return true;
    const BodyBytes stored(body.mFile, body.mEncoded ? body.mOffset : 0, body.mLength);
    return encoding == CTE_QUOTED_PRINTABLE ? readQuotedPrintable(stored, lines)
                                            : readBlocks(stored, lines);
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

// Which containers keep their boundary, and the new ones of the others. Nothing is set before all
// are drawn.
class Drawing
{
public:
    Drawing(const Tree& tree, const TakenLines& lines) : mTree(tree), mLines(lines) {}

    bool run()
    {
        if (!keepFixed())
            return false;
        for (EMAIL_ContentType* type : mTree.containers)
            keepOrDraw(*type);
        if (mStale.empty())
            return true;
        giveUpShortOnes();
        if (!draw())
            return false;
        for (std::size_t i = 0; i < mStale.size(); ++i)
            mStale[i]->setBoundary(mDrawn[i]);
        return true;
    }

private:
    bool keepFixed()
    {
        const auto& fixed = mTree.fixedBoundaries;
        return std::all_of(fixed.begin(), fixed.end(),
                           [this](const QCString& boundary) { return keep(boundary.view()); });
    }

    void keepOrDraw(EMAIL_ContentType& type)
    {
        const std::string_view text = type.mBoundary.view();
        if (!keep(text))
            mStale.push_back(&type);
        else if (text.size() < kDrawnLength && beginsLikeADrawnOne(text))
            mShort.push_back(&type);
    }

    bool keep(std::string_view boundary)
    {
        if (boundary.empty() || mLines.cuts(boundary) || clashes(mKept, boundary))
            return false;
        mKept.emplace(boundary);
        return true;
    }

    // Every boundary, or too many, would be drawn in vain beside them.
    void giveUpShortOnes()
    {
        for (EMAIL_ContentType* type : mShort)
            mKept.erase(mKept.find(type->mBoundary.view()));
        mStale.insert(mStale.end(), mShort.begin(), mShort.end());
    }

    bool draw()
    {
        std::size_t drawsLeft =
            mLines.drawableCount() + mKept.size() + 2 * mStale.size() + kSpareDraws;
        EMAIL_ContentType drawing;
        for (mDrawn.reserve(mStale.size()); mDrawn.size() < mStale.size();) {
            if (drawsLeft-- == 0)
                return false;
            drawing.createBoundary();
            const std::string_view text = drawing.mBoundary.view();
            if (mLines.cutsDrawn(text) || clashes(mKept, text))
                continue;
            mKept.emplace(text);
            mDrawn.push_back(drawing.mBoundary);
        }
        return true;
    }

    const Tree& mTree;
    const TakenLines& mLines;
    // None of which begins another.
    Texts mKept;
    // To be drawn.
    std::vector<EMAIL_ContentType*> mStale;
    // Kept if nothing is drawn.
    std::vector<EMAIL_ContentType*> mShort;
    std::vector<QCString> mDrawn;
};

bool drawWhereNeeded(EMAIL_Entity& root)
{
    const Tree tree = treeBelow(root);
    if (!tree.hasContainers())
        return true;
    TakenLines lines(tree);
    for (const EMAIL_Entity* leaf : tree.leaves) {
        if (!readBody(*leaf, lines))
            return false;
    }
    return Drawing(tree, lines).run();
}

} // namespace

int drawFreshBoundaries(EMAIL_Entity& root)
{
    bool isDone = false;
    return hasMemoryFor([&] { isDone = drawWhereNeeded(root); }) && isDone ? 0 : -1;
}

} // namespace tarvomime
