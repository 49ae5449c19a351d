// SPDX-License-Identifier: MIT
#include "utility/tree/MediaType.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/tree/Container.h"

namespace tarvomime {

MediaType mediaTypeOf(const EMAIL_Entity& entity)
{
    const EMAIL_ContentType* field = entity.mHeader->getContentType();
    if (field == nullptr)
        return {TYPE_TEXT, SUBTYPE_PLAIN};
    return {field->mTypeEnum, field->mSubTypeEnum};
}

const EMAIL_Entity* firstSubPart(const EMAIL_Entity& entity)
{
    const MediaType media = mediaTypeOf(entity);
    return isContainer(media.type, media.subType) ? entity.mBody->bodyPart(0) : nullptr;
}

} // namespace tarvomime
