// SPDX-License-Identifier: MIT
#include "extra/MessageFindings.h"

#include "extra/PartExamination.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <algorithm>
#include <array>
#include <functional>

namespace tarvomime {

namespace {

// Each level is read through once more: a nest of thousands would take its square.
constexpr int kDeepestExamined = 100;

struct KindFacts
{
    FindingKind kind;
    const char* name;
    FindingSeverity severity;
};

constexpr auto kNote = FindingSeverity::Note;
constexpr auto kWarning = FindingSeverity::Warning;
constexpr auto kError = FindingSeverity::Error;

// In the order of the kinds.
constexpr std::array<KindFacts, 20> kKinds = {{
    {FindingKind::BytesInNoPart, "bytes-in-no-part", kError},
    {FindingKind::NoBoundary, "no-boundary", kError},
    {FindingKind::NoDelimiter, "no-delimiter", kError},
    {FindingKind::NoClosingDelimiter, "no-closing-delimiter", kWarning},
    {FindingKind::BoundaryNearMiss, "boundary-near-miss", kWarning},
    {FindingKind::DuplicateField, "duplicate-field", kError},
    {FindingKind::UnsafeName, "unsafe-name", kWarning},
    {FindingKind::EncodedLineBreak, "encoded-line-break", kError},
    {FindingKind::PrivateField, "private-field", kWarning},
    {FindingKind::UnknownCharset, "unknown-charset", kWarning},
    {FindingKind::WrongCharset, "wrong-charset", kWarning},
    {FindingKind::UnknownEncoding, "unknown-encoding", kError},
    {FindingKind::CutBase64, "cut-base64", kError},
    {FindingKind::NulByte, "nul-byte", kError},
    {FindingKind::LoneCr, "lone-cr", kWarning},
    {FindingKind::LongLine, "long-line", kWarning},
    {FindingKind::MarkBeforeHeader, "mark-before-header", kError},
    {FindingKind::UnfinishedHeader, "unfinished-header", kWarning},
    {FindingKind::MethodMismatch, "method-mismatch", kError},
    {FindingKind::TooDeep, "too-deep", kNote},
}};

constexpr bool isInOrder()
{
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        if (kKinds[i].kind != static_cast<FindingKind>(i))
            return false;
    }
    return kKinds.back().kind == FindingKind::TooDeep;
}
static_assert(isInOrder(), "the table is indexed by the kind");

const KindFacts& factsOf(FindingKind kind)
{
    return kKinds[static_cast<std::size_t>(kind)];
}

std::vector<std::string> sortedBoundaries(const MessageContent& content)
{
    std::vector<std::string> boundaries;
    for (const ContentPart& part : content.parts) {
        const EMAIL_ContentType* type = part.entity->mHeader->getContentType();
        if (type != nullptr && !type->mBoundary.isEmpty())
            boundaries.emplace_back(type->mBoundary.view());
    }
    std::sort(boundaries.begin(), boundaries.end());
    return boundaries;
}

// How many levels each part lies below the message: parts follow what holds them.
std::vector<int> depthsOf(const MessageContent& content)
{
    std::vector<int> depths;
    for (const ContentPart& part : content.parts)
        depths.push_back(part.parent < 0 ? 0 : depths[std::size_t(part.parent)] + 1);
    return depths;
}

std::vector<bool> holdersIn(const MessageContent& content)
{
    std::vector<bool> holders(std::size_t(content.parts.size()), false);
    for (const ContentPart& part : content.parts) {
        if (part.parent >= 0)
            holders[std::size_t(part.parent)] = true;
    }
    return holders;
}

void examineParts(const MessageContent& content, const PartExamination& message)
{
    const std::vector<std::string> boundaries = sortedBoundaries(content);
    const std::vector<int> depths = depthsOf(content);
    const std::vector<bool> holders = holdersIn(content);
    bool isTooDeep = false;
    for (int i = 0; i < content.parts.size(); ++i) {
        const PartExamination part{message.bytes, content, i, message.fallbackCharset,
                                   message.findings};
        examineHeader(part);
        isTooDeep = isTooDeep || depths[std::size_t(i)] > kDeepestExamined;
        if (depths[std::size_t(i)] > kDeepestExamined)
            continue;
        examineBoundaries(part, boundaries);
        if (!holders[std::size_t(i)]) {
            examineLines(part);
            examineBody(part);
        }
    }
    if (isTooDeep)
        message.findings.append({FindingKind::TooDeep, kNote, QByteArray(), 0, 0,
                                 QStringLiteral("parts below level %1 were looked at by their "
                                                "headers only")
                                     .arg(kDeepestExamined + 1)});
}

} // namespace

std::string_view PartExamination::body() const
{
    return entity().mBody->mString.view();
}

void PartExamination::report(FindingKind kind, const QString& text, std::string_view where) const
{
    report(kind, factsOf(kind).severity, text, where);
}

void PartExamination::report(FindingKind kind, FindingSeverity severity, const QString& text,
                             std::string_view where) const
{
    // A text that the library had to build is no piece of the message.
    const std::less_equal<const char*> notBehind;
    const bool isPiece = !where.empty() && notBehind(bytes.data(), where.data()) &&
                         notBehind(where.data() + where.size(), bytes.data() + bytes.size());
    findings.append({kind, severity, partNumber(content, index),
                     isPiece ? qint64(where.data() - bytes.data()) : 0,
                     isPiece ? qint64(where.size()) : 0, text});
}

QList<MessageFinding> messageFindings(const QByteArray& message, const QByteArray& fallbackCharset)
{
    QList<MessageFinding> findings;
    EMAIL_Message parsed;
    parsed.setMessage(QCString::fromBytes(message));
    parsed.parse();
    const MessageContent content = readContent(parsed);
    const PartExamination whole{parsed.mString.view(), content, 0, fallbackCharset, findings};
    examineStart(whole);
    examineParts(content, whole);
    return findings;
}

QByteArray findingName(FindingKind kind)
{
    return factsOf(kind).name;
}

QByteArray severityName(FindingSeverity severity)
{
    switch (severity) {
    case FindingSeverity::Note:
        return "note";
    case FindingSeverity::Warning:
        return "warning";
    case FindingSeverity::Error:
        break;
    }
    return "error";
}

} // namespace tarvomime
