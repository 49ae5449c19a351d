// SPDX-License-Identifier: MIT
#include "extra/PartExamination.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <algorithm>
#include <cstring>

namespace tarvomime {

namespace {

// RFC 5322, section 2.1.1, without the line end.
constexpr std::size_t kLongestLine = 998;

std::string_view firstLoneCr(std::string_view text)
{
    std::size_t at = text.find('\r');
    while (at != text.npos && text.substr(at + 1, 1) == "\n")
        at = text.find('\r', at + 1);
    // A CR at the end may belong to a line end that was taken off the text.
    return at == text.npos || at + 1 == text.size() ? std::string_view() : text.substr(at, 1);
}

// The first line that is too long; `count` is how many are.
std::string_view firstLongLine(std::string_view text, int& count)
{
    std::string_view first;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (line.size() <= kLongestLine)
            continue;
        if (++count == 1)
            first = line;
    }
    return first;
}

void examineText(const PartExamination& part, std::string_view text, const QString& place)
{
    const std::size_t nul = text.find('\0');
    if (nul != text.npos)
        part.report(FindingKind::NulByte,
                    QStringLiteral("the %1 holds a NUL, where some readers end it").arg(place),
                    text.substr(nul, 1));
    const std::string_view cr = firstLoneCr(text);
    if (!cr.empty())
        part.report(FindingKind::LoneCr,
                    QStringLiteral("the %1 holds a CR without LF, which some readers take for a "
                                   "line end")
                        .arg(place),
                    cr);
    int count = 0;
    const std::string_view line = firstLongLine(text, count);
    if (count > 0)
        part.report(FindingKind::LongLine,
                    QStringLiteral("the %1 holds lines longer than %2 bytes: %3")
                        .arg(place, QString::number(kLongestLine), QString::number(count)),
                    line);
}

} // namespace

void examineLines(const PartExamination& part)
{
    examineText(part, part.entity().mHeader->mString.view(), QStringLiteral("header"));
    // A body that is said to be binary has no lines.
    if (part.entity().mHeader->getCte() != CTE_BINARY)
        examineText(part, part.body(), QStringLiteral("body"));
}

} // namespace tarvomime
