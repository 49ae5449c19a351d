// SPDX-License-Identifier: MIT
#include "utility/tree/EntityMediaType.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/header/FieldNames.h"

namespace tarvomime {

MediaType mediaTypeOf(const EMAIL_Entity& entity)
{
    const EMAIL_ContentType* field = entity.mHeader->getContentType();
    if (field == nullptr)
        return {TYPE_TEXT, SUBTYPE_PLAIN};
    return {field->mTypeEnum, field->mSubTypeEnum};
}

bool readForeignType(const EMAIL_Header& header, EMAIL_ContentType& read)
{
    const EMAIL_Field* field = header.getField(FieldName::contentType());
    if (field == nullptr || dynamic_cast<const EMAIL_ContentType*>(field) != nullptr)
        return false;
    read.mBody = field->mBody;
    read.parse();
    return true;
}

const EMAIL_Entity* firstSubPart(const EMAIL_Entity& entity)
{
    return isContainer(mediaTypeOf(entity)) ? entity.mBody->bodyPart(0) : nullptr;
}

} // namespace tarvomime
