// SPDX-License-Identifier: MIT
#include "utility/codec/DecodedBody.h"

#include "utility/codec/Charset.h"
#include "utility/codec/TransferEncoding.h"

namespace tarvomime {

int decodeText(const BodyBytes& body, int encoding, int charset, int fallback, QString& out)
{
    QByteArray room;
    const auto bytes = decodedBytes(body, encoding, room);
    if (!bytes)
        return -1;
    decodeFromCharset(*bytes, out, charset == CHARSET_UNKNOWN ? fallback : charset);
    return 0;
}

} // namespace tarvomime
