// SPDX-License-Identifier: MIT
#include "tools/tarvomime/DeclaredCharset.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_Numbers.h"

#include <vector>

namespace tarvomime::tool {

namespace {

void declare(EMAIL_Header& header, const QByteArray& charset)
{
    EMAIL_ContentType* type = header.contentType();
    if (type->hasCharset() || (type->mTypeEnum != TYPE_TEXT && !type->mType.isEmpty()) ||
        QByteArray(type->mSubType).toLower() == "html")
        return;
    const QByteArray stored = type->mBody;
    type->mBody = QCString((stored.isEmpty() ? "text/plain" : stored) + "; charset=" + charset);
}

} // namespace

void declareCharset(EMAIL_Message& message, const QByteArray& charset)
{
    std::vector<EMAIL_Entity*> pending = {&message};
    while (!pending.empty()) {
        const EMAIL_Entity& entity = *pending.back();
        pending.pop_back();
        const EMAIL_Body& body = *entity.mBody;
        const int count = body.numBodyParts();
        for (int i = 0; i < count; ++i)
            pending.push_back(body.bodyPart(i));
        if (body.mMessage != nullptr)
            pending.push_back(body.mMessage);
        if (count == 0 && body.mMessage == nullptr)
            declare(*entity.mHeader, charset);
    }
}

} // namespace tarvomime::tool
