// SPDX-License-Identifier: MIT
#include "utility/tree/StoredBody.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Entity.h"
#include "utility/EMAIL_Header.h"
#include "utility/codec/DecodedBody.h"
#include "utility/codec/MediaTypes.h"
#include "utility/codec/TransferEncoding.h"
#include "utility/tree/EntityMediaType.h"

namespace tarvomime {

namespace {

int namedCharset(const EMAIL_Header& header)
{
    const EMAIL_ContentType* field = header.getContentType();
    return field != nullptr && field->hasCharset() ? field->getCharset() : int(CHARSET_UNKNOWN);
}

} // namespace

BodyBytes storedBytes(const EMAIL_Body& body)
{
    if (body.mInMemory)
        return BodyBytes(body.mString.view());
    return BodyBytes(body.mFile, body.mOffset, body.mLength);
}

void readText(const EMAIL_Entity& part, int charset, QString& text)
{
    const MediaType media = mediaTypeOf(part);
    if (isContainer(media))
        return;
    const EMAIL_Header& header = *part.mHeader;
    decodeText(storedBytes(*part.mBody), header.getCte(), namedCharset(header), charset, text);
}

int writeContent(const EMAIL_Entity& part, QFile* file)
{
    const EMAIL_Body& body = *part.mBody;
    const int encoding = body.mEncoded ? part.mHeader->getCte() : int(CTE_UNKNOWN);
    return file == nullptr ? -1 : writeDecoded(storedBytes(body), encoding, file, nullptr);
}

} // namespace tarvomime
