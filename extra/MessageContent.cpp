// SPDX-License-Identifier: MIT
#include "extra/MessageContent.h"

#include "extra/ContentWalk.h"
#include "extra/EnrichedText.h"
#include "extra/HeadlessPart.h"
#include "extra/HtmlText.h"
#include "extra/PartHeader.h"
#include "extra/Quoting.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <QFile>
#include <cctype>

namespace tarvomime {

namespace {

constexpr int kDeepestNumber = 100;

// HTML that names its charset does so here (HTML, section 4.2.5.4).
constexpr int kLabelRoom = 1024;

Result<QByteArray> storedBytes(const EMAIL_Body& body)
{
    if (body.mInMemory)
        return QByteArray(body.mString.begin(), body.mString.length());
    QFile file(body.mFile);
    if (body.mLength <= 0)
        return QByteArray();
    if (!file.open(QIODevice::ReadOnly) || !file.seek(body.mEncoded ? body.mOffset : 0))
        return Failure{QStringLiteral("its text cannot be read: %1").arg(file.errorString())};
    QByteArray bytes = file.read(body.mLength);
    if (bytes.size() != body.mLength)
        return Failure{QStringLiteral("its text cannot be read: the file was cut short")};
    return bytes;
}

QByteArray decoded(const QByteArray& bytes, int cte)
{
    if (cte != CTE_BASE64 && cte != CTE_QUOTED_PRINTABLE)
        return bytes;
    QByteArray out;
    EMAIL_Util::decFromCTE(QCString::fromBytes(bytes), out, cte);
    return out;
}

// The charset that HTML names for itself; empty where it names none.
QByteArray labelInHtml(const QByteArray& html)
{
    const QByteArray start = html.left(kLabelRoom).toLower();
    int at = int(start.indexOf("charset"));
    if (at < 0)
        return {};
    at += int(qstrlen("charset"));
    while (at < start.size() &&
           (start[at] == ' ' || start[at] == '=' || start[at] == '"' || start[at] == '\''))
        ++at;
    int end = at;
    while (end < start.size() && (std::isalnum(static_cast<unsigned char>(start[end])) != 0 ||
                                  start[end] == '-' || start[end] == '_'))
        ++end;
    return start.mid(at, end - at);
}

ReadText decodedText(const ContentPart& part, const QByteArray& bytes, const QByteArray& fallback)
{
    const QByteArray declared = typeParameter(*part.entity, "charset");
    const QByteArray inHtml =
        isHtmlPart(part) && declared.isEmpty() ? labelInHtml(bytes) : QByteArray();
    ReadText read = readText(bytes, inHtml.isEmpty() ? declared : inHtml, fallback);
    if (!inHtml.isEmpty() && read.charset.basis == CharsetBasis::Declared)
        read.charset.basis = CharsetBasis::DeclaredInHtml;
    return read;
}

bool isBlank(const QString& text)
{
    return text.trimmed().isEmpty();
}

bool saysParameter(const ContentPart& part, const char* name, const char* value)
{
    return typeParameter(*part.entity, name).toLower() == value;
}

// What a part's text looks like to a person.
QString readableText(const ContentPart& part, const QString& text)
{
    if (isHtmlPart(part))
        return textFromHtml(text);
    if (part.type == "text/enriched")
        return textFromEnriched(text);
    if (part.type == "text/richtext")
        return textFromRichText(text);
    if (part.type == "text/plain" && saysParameter(part, "format", "flowed"))
        return textFromFlowed(text, saysParameter(part, "delsp", "yes"));
    return text;
}

// The texts of parts, one after the other, each ending its last line.
Result<QString> joinedText(const MessageContent& content, const QList<int>& parts,
                           const QByteArray& fallback)
{
    QString joined;
    for (const int index : parts) {
        const Result<ReadText> read = partText(content.parts[index], fallback);
        if (!read)
            return read.failure();
        QString text = readableText(content.parts[index], read->text);
        if (!text.isEmpty() && !text.endsWith(u'\n'))
            text += u'\n';
        joined += text;
    }
    return joined;
}

Result<QString> bodyText(const MessageContent& content, const ShownBody& body,
                         const QByteArray& fallback)
{
    Result<QString> plain = joinedText(content, body.plain, fallback);
    if (!plain || !isBlank(*plain))
        return plain;
    return joinedText(content, body.html, fallback);
}

Result<QString> bodyHtml(const MessageContent& content, const ShownBody& body,
                         const QByteArray& fallback)
{
    QString html;
    for (const int index : body.html) {
        const Result<ReadText> read = partText(content.parts[index], fallback);
        if (!read)
            return read.failure();
        html += read->text;
    }
    if (!isBlank(html))
        return html;
    Result<QString> plain = joinedText(content, body.plain, fallback);
    if (!plain || isBlank(*plain))
        return plain;
    return QString(QStringLiteral("<pre>") + plain->toHtmlEscaped() + QStringLiteral("</pre>\n"));
}

using BodyReader = Result<QString> (*)(const MessageContent&, const ShownBody&, const QByteArray&);

Result<QString> ownText(const MessageContent& content, int message, BodyReader read,
                        const QString& separator, const QByteArray& fallback)
{
    QString shown;
    for (const ShownBody& body : content.messages[message].bodies) {
        Result<QString> text = read(content, body, fallback);
        if (!text)
            return text;
        if (!shown.isEmpty() && !text->isEmpty())
            shown += separator;
        shown += *text;
    }
    return shown;
}

// The text of the message or of the first below it that has one: those enclosed in it follow it
// in the list.
Result<QString> firstText(const MessageContent& content, int message, BodyReader read,
                          const QString& separator, const QByteArray& fallback)
{
    for (int i = message; i < content.messages.size(); ++i) {
        if (i > message && content.messages[i].parent < message)
            break;
        Result<QString> text = ownText(content, i, read, separator, fallback);
        if (!text || !isBlank(*text))
            return text;
    }
    return QString();
}

} // namespace

MessageContent readContent(const EMAIL_Entity& message)
{
    return ContentWalk().run(message);
}

QByteArray partNumber(const MessageContent& content, int part)
{
    QByteArray number;
    int levels = 0;
    for (int at = part; at >= 0; at = content.parts[at].parent) {
        if (++levels > kDeepestNumber)
            return {};
        if (!number.isEmpty())
            number.prepend('.');
        number.prepend(QByteArray::number(content.parts[at].ordinal));
    }
    return number;
}

// Children follow their parent: one walk through the list is enough for all levels.
int findPart(const MessageContent& content, const QByteArray& number)
{
    const QList<QByteArray> ordinals = number.split('.');
    int level = 0;
    int parent = -1;
    for (int i = 0; i < content.parts.size(); ++i) {
        const ContentPart& part = content.parts[i];
        if (part.parent != parent || QByteArray::number(part.ordinal) != ordinals[level])
            continue;
        parent = i;
        if (++level == ordinals.size())
            return i;
    }
    return -1;
}

bool isHtmlPart(const ContentPart& part)
{
    return isHtmlType(part.type);
}

Result<QByteArray> partBytes(const ContentPart& part)
{
    const EMAIL_Body& body = *part.entity->mBody;
    Result<QByteArray> stored = storedBytes(body);
    if (stored && isHeadless(*part.entity))
        return headlessText(*part.entity, *stored);
    if (!stored || !body.mEncoded)
        return stored;
    return decoded(*stored, part.entity->mHeader->getCte());
}

Result<ReadText> partText(const ContentPart& part, const QByteArray& fallback)
{
    const Result<QByteArray> bytes = partBytes(part);
    if (!bytes)
        return bytes.failure();
    ReadText read = decodedText(part, *bytes, fallback);
    read.text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return read;
}

Result<QString> shownText(const MessageContent& content, int message, const QByteArray& fallback)
{
    return firstText(content, message, bodyText, QStringLiteral("\n"), fallback);
}

Result<QString> shownHtml(const MessageContent& content, int message, const QByteArray& fallback)
{
    return firstText(content, message, bodyHtml, QStringLiteral("<hr>\n"), fallback);
}

int findInline(const MessageContent& content, int message, const QString& url)
{
    const bool isId = url.startsWith(QLatin1String("cid:"), Qt::CaseInsensitive);
    const QByteArray id =
        isId ? QByteArray::fromPercentEncoding(url.mid(4).toLatin1()) : QByteArray();
    for (int i = 0; i < content.parts.size(); ++i) {
        const ContentPart& part = content.parts[i];
        if (part.message != message || part.role == PartRole::Container)
            continue;
        if (isId && !id.isEmpty() && part.contentId == id)
            return i;
        if (!isId && !url.isEmpty() &&
            QString::fromLatin1(QByteArray(part.entity->mHeader->getContentLocation())) == url)
            return i;
    }
    return -1;
}

} // namespace tarvomime
