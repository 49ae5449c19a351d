// SPDX-License-Identifier: MIT
#include "extra/FindingText.h"
#include "extra/PartExamination.h"
#include "extra/PartHeader.h"
#include "extra/Utf8.h"
#include "types/Ascii.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <algorithm>

namespace tarvomime {

namespace {

// Of an endless text, this much says enough.
constexpr std::size_t kExamined = 16 << 20;

// The start of the decoded body, cut at a line end so that no character is cut in two.
QByteArray decodedStart(const PartExamination& part)
{
    std::string_view bytes = part.body();
    if (bytes.size() > kExamined)
        bytes = bytes.substr(0, bytes.rfind('\n', kExamined) + 1);
    QByteArray stored(bytes.data(), int(bytes.size()));
    const int cte = part.entity().mHeader->getCte();
    if (cte != CTE_BASE64 && cte != CTE_QUOTED_PRINTABLE)
        return stored;
    QByteArray decoded;
    EMAIL_Util::decFromCTE(QCString::fromBytes(stored), decoded, cte);
    return decoded;
}

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isBase64Character(char c)
{
    const char lower = asciiLower(c);
    return (lower >= 'a' && lower <= 'z') || isDigit(c) || c == '+' || c == '/';
}

// Whether the last group of four characters, padding included, is not whole.
bool endsInsideGroup(std::string_view base64)
{
    int inGroup = 0;
    for (const char c : base64) {
        if (isBase64Character(c) || (c == '=' && inGroup > 0))
            inGroup = (inGroup + 1) % 4;
    }
    return inGroup > 0;
}

void examineEncoding(const PartExamination& part)
{
    const EMAIL_Field* field = part.entity().mHeader->getField("Content-Transfer-Encoding");
    const int cte = part.entity().mHeader->getCte();
    if (field != nullptr && !trimmed(field->mBody.view()).empty() && cte == CTE_UNKNOWN)
        part.report(FindingKind::UnknownEncoding,
                    QStringLiteral("the transfer encoding \"%1\" is not known")
                        .arg(shownLabel(QString::fromUtf8(QByteArray(field->mBody).trimmed()))),
                    field->mString.view());
    if (cte == CTE_BASE64 && endsInsideGroup(part.body()))
        part.report(FindingKind::CutBase64,
                    QStringLiteral("the base64 text ends inside a group of four characters: it was "
                                   "cut off, or its padding is missing"));
}

// Why `text` cannot be in the charset of this label; empty where it can.
QString contradiction(const QByteArray& text, const QByteArray& label)
{
    if (label.isEmpty())
        return QStringLiteral("the text names no charset and is not plain ASCII");
    const QString said = QStringLiteral("the text is said to be %1 and is not")
                             .arg(shownLabel(QString::fromLatin1(label)));
    // Reading forgives some damage; a careful reader wants to know of it.
    if (EMAIL_Util::charsetStrToEnum(QCString(label)) == CHARSET_UTF_8)
        return isUtf8({text.constData(), std::size_t(text.size())}) ? QString() : said;
    return readDeclaredText(text, label) ? QString() : said;
}

void examineCharset(const PartExamination& part, const QByteArray& text)
{
    const QByteArray label = typeParameter(part.entity(), "charset");
    if (!label.isEmpty() && !isReadableCharset(label)) {
        part.report(FindingKind::UnknownCharset, QStringLiteral("the charset \"%1\" is not known")
                                                     .arg(shownLabel(QString::fromLatin1(label))));
        return;
    }
    if (isAscii({text.constData(), std::size_t(text.size())}))
        return;
    const QString problem = contradiction(text, label);
    if (!problem.isEmpty())
        part.report(FindingKind::WrongCharset, problem);
}

// The METHOD of an iCalendar object, which stands in front of its components (RFC 5545); empty
// without one.
QByteArray methodOf(const QByteArray& calendar)
{
    std::string_view rest(calendar.constData(), std::size_t(calendar.size()));
    int components = 0;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        if (equalIgnoringCase(line.substr(0, 6), "begin:") && ++components > 1)
            break;
        if (equalIgnoringCase(line.substr(0, 7), "method:")) {
            const std::string_view method = trimmed(line.substr(7));
            return QByteArray(method.data(), int(method.size())).toLower();
        }
    }
    return {};
}

void examineMethod(const PartExamination& part, const QByteArray& calendar)
{
    const QByteArray declared = typeParameter(part.entity(), "method").toLower();
    const QByteArray method = methodOf(calendar);
    if (!declared.isEmpty() && !method.isEmpty() && declared != method)
        part.report(FindingKind::MethodMismatch,
                    QStringLiteral("the calendar's METHOD is %1, its Content-Type says %2")
                        .arg(shownLabel(QString::fromUtf8(method.toUpper())),
                             shownLabel(QString::fromUtf8(declared.toUpper()))));
}

} // namespace

void examineBody(const PartExamination& part)
{
    examineEncoding(part);
    const QByteArray& type = part.part().type;
    if (!type.startsWith("text/"))
        return;
    const QByteArray text = decodedStart(part);
    examineCharset(part, text);
    if (type == "text/calendar")
        examineMethod(part, text);
}

} // namespace tarvomime
