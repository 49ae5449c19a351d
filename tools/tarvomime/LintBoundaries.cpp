// SPDX-License-Identifier: MIT
#include "tools/tarvomime/LintFindings.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <algorithm>
#include <string>

namespace tarvomime::tool {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view withoutBlanksAtEnd(std::string_view line)
{
    return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

bool isBlank(std::string_view bytes)
{
    return bytes.find_first_not_of(" \t\r\n") == bytes.npos;
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// What a line says apart from blanks around it, dashes in front and the two that close.
std::string_view core(std::string_view line)
{
    line = withoutBlanksAtEnd(line);
    line.remove_prefix(std::min(line.find_first_not_of(" \t-"), line.size()));
    return line;
}

bool equalButForCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

/// Whether a line looks as if it were meant to be a delimiter of `boundary`: other case, other
/// dashes, blanks, or up to three characters short of it or longer.
bool almostMatches(std::string_view line, std::string_view boundary)
{
    std::string_view said = core(line);
    const std::string_view meant = core(boundary);
    if (meant.empty() || said.size() + 3 < meant.size() || said.size() > meant.size() + 3)
        return false;
    if (said.size() > meant.size() && equalButForCase(said.substr(0, meant.size()), meant))
        return true;
    if (said.size() < meant.size() && said.size() >= 4)
        return equalButForCase(said, meant.substr(0, said.size()));
    return equalButForCase(said, meant);
}

/// Reads the body of a container line by line, by the library's own rule for delimiters: a line
/// that begins with "--" and the boundary is one, whatever follows.
class BoundaryWalk
{
public:
    BoundaryWalk(const Examination& part, std::string_view boundary,
                 const std::vector<std::string>& boundaries)
        : mPart(part), mBytes(part.bodyBytes()), mDelimiter("--" + std::string(boundary)),
          mBoundary(boundary), mBoundaries(boundaries)
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
        reportTail();
    }

private:
    enum class Stage { Preamble, Parts, Epilogue };

    void visitLine(std::string_view line, std::size_t start, std::size_t next)
    {
        const char first = line.empty() ? '\0' : line.front();
        if (first != '-' && first != ' ' && first != '\t')
            return;
        if (isDelimiter(line))
            visitDelimiter(line, start, next);
        else
            examineNearMiss(line, start);
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
            report("boundary-near-miss",
                   "a line is longer than the delimiter and still taken as one", start,
                   line.size());
        if (mStage == Stage::Preamble)
            reportUnread("in front of the first part", 0, start);
        mStage = closing ? Stage::Epilogue : Stage::Parts;
        mStageStart = next;
    }

    void examineNearMiss(std::string_view line, std::size_t start)
    {
        if (almostMatches(line, mBoundary) && !isKnownLine(line))
            report("boundary-near-miss", "a line almost matches the delimiter and is none", start,
                   line.size());
    }

    /// A delimiter of another container of the same message is no near miss, however alike their
    /// boundaries are.
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
            report("no-delimiter", "the boundary never occurs: the body has no parts", 0, 0);
            reportUnread("in a body without a delimiter", 0, end);
            break;
        case Stage::Parts:
            report("no-closing-delimiter", "the closing delimiter is missing", 0, 0);
            reportUnread("behind the last delimiter, which does not close the body", mStageStart,
                         end);
            break;
        case Stage::Epilogue:
            reportUnread("behind the closing delimiter", mStageStart, end);
            break;
        }
    }

    void reportUnread(const char* where, std::size_t start, std::size_t end)
    {
        if (start < end && !isBlank(mBytes.substr(start, end - start)))
            report("bytes-in-no-part", QString("bytes %1 belong to no part").arg(where), start,
                   end - start);
    }

    void report(const char* code, const QString& explanation, std::size_t start, std::size_t length)
    {
        const qint64 base = mPart.entity.mBody->mOffset;
        mPart.report(code, explanation, base + qint64(start), qint64(length));
    }

    const Examination& mPart;
    std::string_view mBytes;
    std::string mDelimiter;
    std::string_view mBoundary;
    const std::vector<std::string>& mBoundaries;
    Stage mStage = Stage::Preamble;
    std::size_t mStageStart = 0;
};

} // namespace

void examineBoundaries(const Examination& part, const std::vector<std::string>& boundaries)
{
    const EMAIL_ContentType* type = part.entity.mHeader->getContentType();
    const bool hasParts = part.entity.mBody->numBodyParts() > 0;
    if (type == nullptr || (type->mTypeEnum != TYPE_MULTIPART && !hasParts))
        return;
    if (type->mBoundary.isEmpty())
        part.report("no-boundary", "the container names no boundary");
    BoundaryWalk(part, type->mBoundary.view(), boundaries).run();
}

} // namespace tarvomime::tool
