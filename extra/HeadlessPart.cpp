// SPDX-License-Identifier: MIT
#include "extra/HeadlessPart.h"

#include "types/Ascii.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <QFile>
#include <algorithm>

namespace tarvomime {

namespace {

bool saysWhatItIs(const EMAIL_Field& field)
{
    return equalIgnoringCase(field.mName.view().substr(0, 8), "content-");
}

// The line ends in front of a body in a file, at most so many as anybody leaves there.
QByteArray lineEndsBefore(const EMAIL_Body& body)
{
    constexpr qint64 kMost = 64;
    QFile file(body.mFile);
    const qint64 start = qMax<qint64>(0, body.mOffset - kMost);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(start))
        return "\n";
    const QByteArray before = file.read(body.mOffset - start);
    int length = 0;
    while (length < before.size() && isLineBreak(before.at(before.size() - 1 - length)))
        ++length;
    return before.right(length);
}

} // namespace

bool isHeadless(const EMAIL_Entity& entity)
{
    if (dynamic_cast<const EMAIL_BodyPart*>(&entity) == nullptr ||
        entity.mHeader->mFields.isEmpty())
        return false;
    const QPtrList<EMAIL_Field>& fields = entity.mHeader->mFields;
    const std::string_view line = fields.at(0)->mString.view();
    const std::string_view name = trimmed(line.substr(0, line.find(':')));
    const bool isField = line.find(':') != line.npos && name.find_first_of(" \t") == name.npos;
    return !isField && std::none_of(fields.begin(), fields.end(),
                                    [](const EMAIL_Field* field) { return saysWhatItIs(*field); });
}

QByteArray headlessText(const EMAIL_Entity& entity, const QByteArray& body)
{
    if (!entity.mString.isEmpty())
        return QByteArray(entity.mString.begin(), entity.mString.length());
    QByteArray text(entity.mHeader->mString.begin(), entity.mHeader->mString.length());
    if (body.isEmpty())
        return text;
    while (!text.isEmpty() && isLineBreak(text.at(text.size() - 1)))
        text.chop(1);
    return text + lineEndsBefore(*entity.mBody) + body;
}

} // namespace tarvomime
