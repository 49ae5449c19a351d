// SPDX-License-Identifier: MIT
#include "extra/FindingSeries.h"
#include "extra/PartExamination.h"
#include "types/Ascii.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Numbers.h"

#include <algorithm>
#include <string>

namespace tarvomime {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view withoutBlanksAtEnd(std::string_view line)
{
    return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

bool isBlankText(std::string_view bytes)
{
    return bytes.find_first_not_of(" \t\r\n") == bytes.npos;
}

// Whether a text outside the parts is such as programs and mailing lists put there: short, and
// nothing in it looks like a part that readers might see or hide.
bool isOrdinary(std::string_view text)
{
    constexpr std::size_t kLongest = 4096;
    if (text.size() > kLongest || text.find('\0') != text.npos)
        return false;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const bool isField = equalIgnoringCase(line.substr(0, 8), "content-");
        const bool isDelimiter =
            line.substr(0, 2) == "--" && line.find_first_not_of(" \t\r-") != line.npos;
        if (isField || isDelimiter)
            return false;
    }
    return true;
}

// What a line says apart from blanks around it, dashes in front and the two that close.
std::string_view core(std::string_view line)
{
    line = withoutBlanksAtEnd(line);
    line.remove_prefix(std::min(line.find_first_not_of(" \t-"), line.size()));
    return line;
}

// Whether a line looks as if it were meant to be a delimiter of the boundary whose core is `meant`:
// other case, other dashes, blanks, or up to three characters short of it or longer.
bool almostMatches(std::string_view line, std::string_view meant)
{
    std::string_view said = core(line);
    if (meant.empty() || said.size() + 3 < meant.size() || said.size() > meant.size() + 3)
        return false;
    if (said.size() > meant.size() && equalIgnoringCase(said.substr(0, meant.size()), meant))
        return true;
    if (said.size() < meant.size() && said.size() >= 4)
        return equalIgnoringCase(said, meant.substr(0, said.size()));
    return equalIgnoringCase(said, meant);
}

// Reads the body of a container line by line, by the library's own rule for delimiters: a line
// that begins with "--" and the boundary is one, whatever follows.
class BoundaryWalk
{
public:
    BoundaryWalk(const PartExamination& part, std::string_view boundary,
                 const std::vector<std::string>& boundaries)
        : mPart(part), mBytes(part.body()), mDelimiter("--" + std::string(boundary)),
          mMeant(core(boundary)), mBoundaries(boundaries),
          mLonger(part, FindingKind::BoundaryNearMiss, kMostNearMisses),
          mAlmost(part, FindingKind::BoundaryNearMiss, kMostNearMisses)
    {
    }

    void run()
    {
        std::size_t start = 0;
        while (start < mBytes.size()) {
            const std::size_t end = std::min(mBytes.find('\n', start), mBytes.size());
            visitLine(mBytes.substr(start, end - start), start, std::min(end + 1, mBytes.size()));
            start = end + 1;
        }
        mLonger.tellMore();
        mAlmost.tellMore();
        reportTail();
    }

private:
    // Of each sort: what broken mail has at most. Every level looks at the lines of the innermost.
    static constexpr int kMostNearMisses = 5;

    enum class Stage { Preamble, Parts, Epilogue };

    void visitLine(std::string_view line, std::size_t start, std::size_t next)
    {
        const char first = line.empty() ? '\0' : line.front();
        if (first != '-' && first != ' ' && first != '\t')
            return;
        if (isDelimiter(line))
            visitDelimiter(line, start, next);
        else
            examineNearMiss(line);
    }

    bool isDelimiter(std::string_view line) const
    {
        return mStage != Stage::Epilogue && line.substr(0, mDelimiter.size()) == mDelimiter;
    }

    void visitDelimiter(std::string_view line, std::size_t start, std::size_t next)
    {
        const std::string_view rest = withoutBlanksAtEnd(line.substr(mDelimiter.size()));
        const bool closing = rest.substr(0, 2) == "--";
        const std::string_view surplus = closing ? rest.substr(2) : rest;
        if (!surplus.empty() && !isKnownLine(line))
            mLonger.add(QStringLiteral("a line is longer than the delimiter and still taken as "
                                       "one"),
                        line);
        if (mStage == Stage::Preamble)
            reportUnread("in front of the first part", FindingSeverity::Note, 0, start);
        mStage = closing ? Stage::Epilogue : Stage::Parts;
        mStageStart = next;
    }

    void examineNearMiss(std::string_view line)
    {
        if (almostMatches(line, mMeant) && !isKnownLine(line))
            mAlmost.add(QStringLiteral("a line almost matches the delimiter and is none"), line);
    }

    // A delimiter of another container of the same message is no near miss, however alike their
    // boundaries are.
    bool isKnownLine(std::string_view line) const
    {
        line = withoutBlanksAtEnd(line);
        if (line.substr(0, 2) != "--")
            return false;
        line.remove_prefix(2);
        const auto isKnown = [this](std::string_view boundary) {
            return std::binary_search(mBoundaries.begin(), mBoundaries.end(), boundary);
        };
        const bool closes = line.size() >= 2 && line.substr(line.size() - 2) == "--";
        return isKnown(line) || (closes && isKnown(line.substr(0, line.size() - 2)));
    }

    void reportTail()
    {
        const std::size_t end = mBytes.size();
        switch (mStage) {
        case Stage::Preamble:
            mPart.report(FindingKind::NoDelimiter,
                         QStringLiteral("the boundary never occurs: the body has no parts"));
            reportUnread("in a body without a delimiter", FindingSeverity::Error, 0, end);
            break;
        case Stage::Parts:
            mPart.report(FindingKind::NoClosingDelimiter,
                         QStringLiteral("the closing delimiter is missing"));
            reportUnread("behind the last delimiter, which does not close the body",
                         FindingSeverity::Error, mStageStart, end);
            break;
        case Stage::Epilogue:
            reportUnread("behind the closing delimiter", FindingSeverity::Note, mStageStart, end);
            break;
        }
    }

    // `ordinary` is how much it matters where it is such a text as programs and mailing lists put
    // there.
    void reportUnread(const char* where, FindingSeverity ordinary, std::size_t start,
                      std::size_t end)
    {
        if (start >= end || isBlankText(mBytes.substr(start, end - start)))
            return;
        const std::string_view unread = mBytes.substr(start, end - start);
        mPart.report(
            FindingKind::BytesInNoPart, isOrdinary(unread) ? ordinary : FindingSeverity::Error,
            QStringLiteral("bytes %1 belong to no part").arg(QLatin1String(where)), unread);
    }

    const PartExamination& mPart;
    std::string_view mBytes;
    std::string mDelimiter;
    // Found once: a boundary may be as long as the message.
    std::string_view mMeant;
    const std::vector<std::string>& mBoundaries;
    FindingSeries mLonger;
    FindingSeries mAlmost;
    Stage mStage = Stage::Preamble;
    std::size_t mStageStart = 0;
};

} // namespace

void examineBoundaries(const PartExamination& part, const std::vector<std::string>& boundaries)
{
    const EMAIL_ContentType* type = part.entity().mHeader->getContentType();
    const bool hasParts = part.entity().mBody->numBodyParts() > 0;
    if (type == nullptr || (type->mTypeEnum != TYPE_MULTIPART && !hasParts))
        return;
    if (type->mBoundary.isEmpty())
        part.report(FindingKind::NoBoundary, QStringLiteral("the container names no boundary"));
    BoundaryWalk(part, type->mBoundary.view(), boundaries).run();
}

} // namespace tarvomime
