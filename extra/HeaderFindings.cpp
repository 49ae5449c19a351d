// SPDX-License-Identifier: MIT
#include "extra/EncodedWords.h"
#include "extra/FieldParameter.h"
#include "extra/FindingSeries.h"
#include "extra/FindingText.h"
#include "extra/PartExamination.h"
#include "extra/PartHeader.h"
#include "extra/SafeFileName.h"
#include "extra/ShortText.h"
#include "extra/WordScanner.h"
#include "types/Ascii.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <QHash>
#include <QSet>
#include <algorithm>
#include <array>

namespace tarvomime {

namespace {

// What may stand once in the header of any part (RFC 2045, RFC 2183) ...
constexpr std::array<std::string_view, 3> kSingleFields = {
    {"content-disposition", "content-transfer-encoding", "content-type"}};

// ... and once in the header of a message (RFC 5322, section 3.6).
constexpr std::array<std::string_view, 11> kSingleMessageFields = {
    {"bcc", "cc", "date", "from", "in-reply-to", "message-id", "references", "reply-to", "sender",
     "subject", "to"}};

template <std::size_t N>
bool holds(const std::array<std::string_view, N>& names, const QByteArray& name)
{
    return std::find(names.begin(), names.end(),
                     std::string_view(name.constData(), std::size_t(name.size()))) != names.end();
}

QString textOf(const QCString& text)
{
    return QString::fromUtf8(QByteArray(text));
}

bool isPrivate(const QByteArray& name)
{
    return name.startsWith("x-qrn-") || name == "x-message-partid";
}

bool isMessage(const PartExamination& part)
{
    const int parent = part.part().parent;
    return parent < 0 || isMessageType(part.content.parts[parent].type);
}

bool holdsLineBreak(const QString& text)
{
    return text.contains('\n') || text.contains('\r');
}

// What any number of fields of one header may give rise to.
class FieldSeries
{
public:
    explicit FieldSeries(const PartExamination& part)
        : privates(part, FindingKind::PrivateField, kMost),
          lineBreaks(part, FindingKind::EncodedLineBreak, kMost),
          charsets(part, FindingKind::UnknownCharset, kMost)
    {
    }

    void tellMore() const
    {
        privates.tellMore();
        lineBreaks.tellMore();
        charsets.tellMore();
    }

    FindingSeries privates;
    FindingSeries lineBreaks;
    FindingSeries charsets;

private:
    static constexpr int kMost = 32;
};

// The encoded words of one field. One that holds a line break would start a field of its own
// wherever the value is written again.
struct FieldWords
{
    bool holdLineBreak = false;
    QSet<QByteArray> labels;
};

FieldWords wordsOf(std::string_view body, const QByteArray& fallbackCharset)
{
    FieldWords found;
    WordScanner words(body);
    for (words.takePlain(); !words.atEnd(); words.takePlain()) {
        const EncodedWord word = words.takeWord();
        const QCString text(word.text.data(), int(word.text.size()));
        found.holdLineBreak =
            found.holdLineBreak || holdsLineBreak(decodedWords(text, fallbackCharset));
        if (found.labels.size() < kMostLabels)
            found.labels.insert(QByteArray(word.charset.data(), int(word.charset.size())));
    }
    return found;
}

void examineWords(const PartExamination& part, const EMAIL_Field& field, FieldSeries& series)
{
    const std::string_view body = field.mBody.view();
    if (body.find("=?") == body.npos)
        return;
    const FieldWords words = wordsOf(body, part.fallbackCharset);
    const QString name = shownName(textOf(field.mName));
    if (words.holdLineBreak)
        series.lineBreaks.add(
            QStringLiteral("an encoded word of the field %1 holds a line break").arg(name),
            field.mString.view());
    QList<QByteArray> labels = words.labels.values();
    std::sort(labels.begin(), labels.end());
    for (const QByteArray& label : labels) {
        if (!isReadableCharset(label))
            series.charsets.add(
                QStringLiteral("an encoded word of the field %1 names the unknown charset \"%2\"")
                    .arg(name, shownLabel(QString::fromLatin1(label))),
                field.mString.view());
    }
}

void examineFields(const PartExamination& part)
{
    const bool inMessage = isMessage(part);
    FieldSeries series(part);
    QHash<QByteArray, int> seen;
    for (const EMAIL_Field* field : part.entity().mHeader->mFields) {
        const QByteArray name = QByteArray(field->mName).toLower();
        if (isPrivate(name))
            series.privates.add(
                QStringLiteral("the field %1 belongs to the mail store, not to mail")
                    .arg(shownName(textOf(field->mName))),
                field->mString.view());
        // One finding a name, however many there are.
        const bool single =
            holds(kSingleFields, name) || (inMessage && holds(kSingleMessageFields, name));
        if (single && ++seen[name] == 2)
            part.report(FindingKind::DuplicateField,
                        QStringLiteral("there is more than one %1 field; readers differ in which "
                                       "they believe")
                            .arg(textOf(field->mName)),
                        field->mString.view());
        examineWords(part, *field, series);
    }
    series.tellMore();
}

QString parameterOf(const PartExamination& part, const char* field, std::string_view parameter)
{
    const EMAIL_Field* found = part.entity().mHeader->getField(field);
    return found == nullptr ? QString()
                            : fieldParameter(found->mBody, parameter, part.fallbackCharset);
}

void examineName(const PartExamination& part, const QString& name)
{
    const QString safe = name.isEmpty() ? name : safeFileName(name);
    if (safe != name)
        part.report(FindingKind::UnsafeName,
                    QStringLiteral("the file name \"%1\" is not safe; it becomes \"%2\"")
                        .arg(shownName(name), safe));
}

void examineNames(const PartExamination& part)
{
    const QString fileName = parameterOf(part, "Content-Disposition", "filename");
    const QString name = parameterOf(part, "Content-Type", "name");
    examineName(part, fileName);
    if (name != fileName)
        examineName(part, name);
}

// The line that `text` begins with, without its line end.
std::string_view firstLine(std::string_view text)
{
    text = text.substr(0, text.find('\n'));
    if (!text.empty() && text.back() == '\r')
        text.remove_suffix(1);
    return text;
}

// Whether an empty line stands where the header should begin. From parts it is taken off: it
// stands between their text and the delimiter.
bool beginsWithEmptyLine(const PartExamination& part)
{
    const std::string_view text = part.entity().mString.view();
    if (isMessage(part))
        return !text.empty() && isLineBreak(text.front());
    std::string_view before = part.bytes.substr(0, std::size_t(text.data() - part.bytes.data()));
    before = before.substr(0, before.find_last_not_of('\r') + 1);
    if (before.empty() || before.back() != '\n')
        return false;
    before.remove_suffix(1);
    before = before.substr(0, before.find_last_not_of('\r') + 1);
    return !before.empty() && before.back() == '\n';
}

void examineEnd(const PartExamination& part)
{
    std::string_view rest = part.entity().mString.view();
    const std::string_view header = part.entity().mHeader->mString.view();
    rest.remove_prefix(std::min(rest.find_first_not_of("\r\n"), rest.size()));
    rest.remove_prefix(std::min(header.size(), rest.size()));
    if (beginsWithEmptyLine(part) || (header.empty() && rest.empty()))
        return;
    // A part may be its header alone, and the line end behind that the delimiter's (RFC 2046,
    // section 5.1).
    if (rest.empty() && isMessage(part))
        part.report(FindingKind::UnfinishedHeader,
                    QStringLiteral("the text ends inside the header"));
    else if (!rest.empty() && !firstLine(rest).empty())
        part.report(FindingKind::UnfinishedHeader,
                    QStringLiteral("a line that is no field ends the header in place of an empty "
                                   "one"),
                    firstLine(rest));
}

} // namespace

void examineHeader(const PartExamination& part)
{
    examineFields(part);
    examineNames(part);
    examineEnd(part);
}

void examineStart(const PartExamination& message)
{
    constexpr std::array<std::string_view, 3> kMarks = {{"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}};
    for (const std::string_view mark : kMarks) {
        if (message.bytes.substr(0, mark.size()) == mark)
            message.report(FindingKind::MarkBeforeHeader,
                           QStringLiteral("a byte order mark hides the first field"),
                           message.bytes.substr(0, mark.size()));
    }
    if (message.bytes.substr(0, 5) == "From " || message.bytes.substr(0, 6) == ">From ")
        message.report(FindingKind::MarkBeforeHeader, FindingSeverity::Note,
                       QStringLiteral("the separator line of an mbox stands before the first "
                                      "field"),
                       firstLine(message.bytes));
}

} // namespace tarvomime
