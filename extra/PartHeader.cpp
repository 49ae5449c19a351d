// SPDX-License-Identifier: MIT
#include "extra/PartHeader.h"

#include "extra/AttachmentName.h"
#include "extra/FieldParameter.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Entity.h"
#include "utility/EMAIL_Header.h"

namespace tarvomime {

QByteArray typeNameOf(const EMAIL_Entity& entity)
{
    const EMAIL_ContentType* type = entity.mHeader->getContentType();
    if (type == nullptr || type->mType.isEmpty())
        return "text/plain";
    return QByteArray(type->mType).toLower() + '/' + QByteArray(type->mSubType).toLower();
}

QByteArray typeParameter(const EMAIL_Entity& entity, const char* name)
{
    const EMAIL_ContentType* type = entity.mHeader->getContentType();
    return type == nullptr ? QByteArray() : fieldParameter(type->mBody, name).toLatin1();
}

QByteArray contentIdOf(const EMAIL_Entity& entity)
{
    QByteArray id = QByteArray(entity.mHeader->getContentId()).trimmed();
    if (id.startsWith('<'))
        id.remove(0, 1);
    if (id.endsWith('>'))
        id.chop(1);
    return id;
}

bool saysAttachment(const EMAIL_Entity& entity)
{
    const EMAIL_DispositionType* disposition = entity.mHeader->getContentDisposition();
    return disposition != nullptr && disposition->mIsAttachment != 0;
}

bool isNamed(const EMAIL_Entity& entity)
{
    return !attachmentName(*entity.mHeader).isEmpty();
}

bool isContainerType(const QByteArray& type)
{
    return type.startsWith("multipart/") || type == "application/vnd.wap.multipart.related" ||
           type == "application/vnd.wap.multipart.mixed";
}

bool isHtmlType(const QByteArray& type)
{
    return type == "text/html" || type == "application/xhtml+xml";
}

bool isMessageType(const QByteArray& type)
{
    return type == "message/rfc822" || type == "message/global" || type == "message/news";
}

} // namespace tarvomime
