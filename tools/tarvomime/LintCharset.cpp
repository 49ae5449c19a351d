// SPDX-License-Identifier: MIT
#include "extra/Utf8.h"
#include "tools/tarvomime/LintFindings.h"
#include "tools/tarvomime/PartFacts.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <algorithm>

namespace tarvomime::tool {

namespace {

/// Of an endless text, this much says enough.
constexpr std::size_t kExamined = 16 << 20;

/// The start of the decoded body, cut at a line end so that no character is cut in two.
QByteArray decodedStart(const Examination& part)
{
    std::string_view bytes = part.bodyBytes();
    if (bytes.size() > kExamined)
        bytes = bytes.substr(0, bytes.rfind('\n', kExamined) + 1);
    QByteArray stored(bytes.data(), static_cast<int>(bytes.size()));
    const int cte = part.entity.mHeader->getCte();
    if (cte != CTE_BASE64 && cte != CTE_QUOTED_PRINTABLE)
        return stored;
    QByteArray decoded;
    EMAIL_Util::decFromCTE(stored, decoded, cte);
    return decoded;
}

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void compareWithBytes(const Examination& part, const QString& label, int charset)
{
    const QByteArray decoded = decodedStart(part);
    const std::string_view text(decoded.constData(), static_cast<std::size_t>(decoded.size()));
    if (isAscii(text))
        return;
    if (label.isEmpty())
        part.report("wrong-charset", "the text names no charset and is not plain ASCII");
    else if (charset == CHARSET_US_ASCII)
        part.report("wrong-charset", "the text is said to be us-ascii and is not");
    else if (charset == CHARSET_UTF_8 && !isUtf8(text))
        part.report("wrong-charset", "the text is said to be utf-8 and is not");
}

} // namespace

void examineCharset(const Examination& part)
{
    const PartFacts facts(part.entity, part.charset);
    if (!facts.type.startsWith(QLatin1String("text/")))
        return;
    const int charset = EMAIL_Util::charsetStrToEnum(facts.charset.toLatin1());
    if (!facts.charset.isEmpty() && charset == CHARSET_UNKNOWN)
        part.report("unknown-charset", "the charset \"" + facts.charset + "\" is not known");
    else
        compareWithBytes(part, facts.charset, charset);
}

} // namespace tarvomime::tool
