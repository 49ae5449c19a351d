// SPDX-License-Identifier: MIT
#include "utility/tree/HeaderAssembly.h"

#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/header/FieldNames.h"
#include "utility/text/Joined.h"
#include "utility/tree/TextBuilder.h"

#include <algorithm>
#include <array>
#include <functional>
#include <typeinfo>
#include <utility>

namespace tarvomime {

namespace {

// A field of the library's plain class is written straight from its name and body.
bool isPlain(const EMAIL_Field& field)
{
    return typeid(field) == typeid(EMAIL_Field);
}

// The pieces of the field's line: an assembled one is whole, and a plain field without a body has
// none.
std::array<std::string_view, 4> linePieces(const EMAIL_Field& field)
{
    if (!isPlain(field))
        return {field.mString.view()};
    if (field.mBody.isEmpty())
        return {};
    return {field.mName.view(), ": ", field.mBody.view(), "\r\n"};
}

// The length of the field's line, which is assembled unless the field is a plain one; -1 when it
// refuses.
qint64 measure(EMAIL_Field& field)
{
    if (!isPlain(field)) {
        field.assemble();
        return isRefused(field.mString) ? -1 : field.mString.length();
    }
    qint64 length = 0;
    for (const std::string_view piece : linePieces(field))
        length += static_cast<qint64>(piece.size());
    return length;
}

// The length of all lines together; -1 when one of them refuses. By index: the assembling of an
// application's own field may add another one.
qint64 measure(EMAIL_Header& header)
{
    qint64 length = 0;
    for (int index = 0; index < header.mFields.count(); ++index) {
        const qint64 line = measure(*header.mFields.begin()[index]);
        if (line < 0)
            return -1;
        length += line;
    }
    return length;
}

// The line of a plain field that writes nothing becomes empty; an empty one of any other class is
// its own affair.
bool write(EMAIL_Field& field, TextBuilder& text)
{
    const int start = text.position();
    for (const std::string_view piece : linePieces(field)) {
        if (!text.write(piece))
            return false;
    }
    if (text.position() > start)
        field.mString = text.writtenFrom(start);
    else if (isPlain(field))
        field.mString = QCString::fromLiteral("");
    return true;
}

// In their writing order, each once.
bool writeFields(const EMAIL_Header& header, TextBuilder& text)
{
    const std::array leaders{header.getField(FieldName::from()), header.getField(FieldName::to()),
                             header.getField(FieldName::date()),
                             header.getField(FieldName::subject())};
    for (EMAIL_Field* field : leaders) {
        if (field != nullptr && !write(*field, text))
            return false;
    }
    for (EMAIL_Field* field : header.mFields) {
        const bool isLeader = std::find(leaders.begin(), leaders.end(), field) != leaders.end();
        if (!isLeader && !write(*field, text))
            return false;
    }
    return true;
}

bool liesIn(std::string_view whole, std::string_view part)
{
    const std::less_equal<const char*> notBehind;
    return notBehind(whole.data(), part.data()) &&
           notBehind(part.data() + part.size(), whole.data() + whole.size());
}

} // namespace

bool assembleHeader(EMAIL_Header& header, int limit)
{
    const qint64 length = measure(header);
    if (length < 0 || length > limit)
        return false;
    TextBuilder text(static_cast<int>(length));
    if (!writeFields(header, text))
        return false;
    header.mString = text.writtenFrom(0);
    return true;
}

void moveHeader(EMAIL_Header& header, const QCString& text, int start)
{
    const QCString old = std::exchange(header.mString, text.mid(start, header.mString.length()));
    for (EMAIL_Field* field : header.mFields) {
        const std::string_view line = field->mString.view();
        if (!line.empty() && liesIn(old.view(), line))
            field->mString = text.mid(start + static_cast<int>(line.data() - old.begin()),
                                      static_cast<int>(line.size()));
    }
}

} // namespace tarvomime
