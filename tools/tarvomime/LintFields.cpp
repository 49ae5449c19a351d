// SPDX-License-Identifier: MIT
#include "extra/SafeFileName.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/LintFindings.h"
#include "tools/tarvomime/PartFacts.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

namespace tarvomime::tool {

namespace {

QString textOf(const QCString& text)
{
    return QString::fromUtf8(QByteArray(text));
}

bool isPrivate(const QCString& name)
{
    const QCString lower = name.lower();
    return lower.left(6) == "x-qrn-" || lower == "x-message-partid";
}

/// The library drops the folds of a field before it decodes: a line break in the result came out
/// of an encoded word, and would start a field of its own wherever the value is written again.
bool decodesToLineBreak(const QCString& body, int charset)
{
    if (body.find("=?") < 0)
        return false;
    QString decoded;
    EMAIL_Util::decode_2047_String(body, decoded, charset);
    return decoded.contains('\n') || decoded.contains('\r');
}

/// The charset names of the encoded words in `body` that the library does not know.
QStringList unknownWordCharsets(const QCString& body)
{
    QStringList unknown;
    int start = body.find("=?");
    while (start >= 0) {
        const int end = body.find('?', start + 2);
        if (end < 0)
            break;
        const QCString label = body.mid(start + 2, end - start - 2);
        const bool isLabel =
            !label.isEmpty() && label.view().find_first_of(" \t\r\n") == std::string_view::npos;
        if (isLabel && EMAIL_Util::charsetStrToEnum(label) == CHARSET_UNKNOWN)
            unknown.append(textOf(label));
        // A word ends with "?=", whose "=" must not open the next one.
        const int wordEnd = body.find("?=", end + 3);
        start = wordEnd < 0 ? -1 : body.find("=?", wordEnd + 2);
    }
    unknown.removeDuplicates();
    return unknown;
}

void examineField(const Examination& part, const EMAIL_Field& field)
{
    const QString name = textOf(field.mName);
    if (isPrivate(field.mName))
        part.report("private-field",
                    "the field " + name + " belongs to the mail store, not to mail");
    if (decodesToLineBreak(field.mBody, part.charset))
        part.report("encoded-line-break",
                    "an encoded word of the field " + name + " holds a line break");
    for (const QString& label : unknownWordCharsets(field.mBody))
        part.report("unknown-charset", "an encoded word of the field " + name +
                                           " names the unknown charset \"" + label + '"');
}

void examineDuplicates(const Examination& part)
{
    for (const char* name : {"content-type", "content-disposition"}) {
        int count = 0;
        QString spelling;
        for (const EMAIL_Field* field : part.entity.mHeader->mFields) {
            if (field->mName.lower() != name)
                continue;
            ++count;
            spelling = textOf(field->mName);
        }
        if (count > 1)
            part.report("duplicate-field",
                        QString("there are %1 %2 fields; readers differ in which they believe")
                            .arg(count)
                            .arg(spelling));
    }
}

void examineName(const Examination& part, const QString& name)
{
    if (name.isEmpty())
        return;
    const QString safe = safeFileName(name, {});
    if (safe != name)
        part.report("unsafe-name",
                    "the file name \"" + name + "\" is not safe; it becomes \"" + safe + '"');
}

} // namespace

std::string_view Examination::bodyBytes() const
{
    const EMAIL_Body& body = *entity.mBody;
    return body.mInMemory
               ? body.mString.view()
               : file.bytes().substr(std::size_t(body.mOffset), std::size_t(body.mLength));
}

void examineFields(const Examination& part)
{
    examineDuplicates(part);
    for (const EMAIL_Field* field : part.entity.mHeader->mFields)
        examineField(part, *field);
    const PartFacts facts(part.entity, part.charset);
    examineName(part, facts.fileName);
    if (facts.name != facts.fileName)
        examineName(part, facts.name);
}

} // namespace tarvomime::tool
