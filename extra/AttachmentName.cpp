// SPDX-License-Identifier: MIT
#include "extra/AttachmentName.h"

#include "extra/EncodedWords.h"
#include "extra/FieldParameter.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

namespace tarvomime {

namespace {

QString parameterOf(const EMAIL_Field* field, std::string_view name,
                    const QByteArray& fallbackCharset)
{
    const QString value =
        field == nullptr ? QString() : fieldParameter(field->mBody, name, fallbackCharset);
    // Blanks name nothing.
    return value.trimmed().isEmpty() ? QString() : value;
}

} // namespace

QString attachmentName(const EMAIL_Header& header, const QByteArray& fallbackCharset)
{
    const EMAIL_Field* disposition = header.getField("Content-Disposition");
    const EMAIL_Field* type = header.getField("Content-Type");
    QString name = parameterOf(disposition, "filename", fallbackCharset);
    if (name.isEmpty())
        name = parameterOf(type, "name", fallbackCharset);
    if (name.isEmpty())
        name = parameterOf(disposition, "name", fallbackCharset);
    if (name.isEmpty())
        name = parameterOf(type, "filename", fallbackCharset);
    if (name.isEmpty())
        name = decodedWords(header.getASAttName(), fallbackCharset);
    return name;
}

QString attachmentName(const EMAIL_MIME& message, int index, const QByteArray& fallbackCharset)
{
    const EMAIL_Message* entity = message.mMessage;
    const EMAIL_BodyPart* part = entity == nullptr ? nullptr : entity->mBody->bodyPart(index);
    return part == nullptr ? QString() : attachmentName(*part->mHeader, fallbackCharset);
}

} // namespace tarvomime
