// SPDX-License-Identifier: MIT
#include "utility/codec/DecodedBody.h"

#include "utility/codec/Charset.h"
#include "utility/codec/TransferEncoding.h"
#include "utility/file/BlockWriter.h"

namespace tarvomime {

namespace {

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// The decoded bytes: where they stand in memory as they are, else in `room`.
std::optional<std::string_view> decoded(const BodyBytes& body, int encoding, QByteArray& room)
{
    const bool isCoded = encoding == CTE_QUOTED_PRINTABLE || encoding == CTE_BASE64;
    if (body.isInMemory() && !isCoded)
        return body.view().substr(0, body.view().find('\0'));
    auto bytes = decodeTransfer(body, encoding);
    if (!bytes)
        return std::nullopt;
    room = *std::move(bytes);
    return viewOf(room);
}

} // namespace

int decodeText(const BodyBytes& body, int encoding, int charset, int fallback, QString& out)
{
    QByteArray room;
    const auto bytes = decoded(body, encoding, room);
    if (!bytes)
        return -1;
    decodeFromCharset(*bytes, out, charset == CHARSET_UNKNOWN ? fallback : charset);
    return 0;
}

int writeDecoded(const BodyBytes& body, int encoding, QFile* file, const ProgressCallback& callback)
{
    if (!body.isInMemory())
        return decodeTransfer(body, file, encoding, callback);
    QByteArray room;
    const auto bytes = decoded(body, encoding, room);
    return bytes ? writeBlock(file, bytes->data(), static_cast<int>(bytes->size())) : -1;
}

} // namespace tarvomime
