// SPDX-License-Identifier: MIT
#include "utility/codec/TransferEncoding.h"

#include "utility/codec/Base64.h"
#include "utility/codec/QuotedPrintable.h"
#include "utility/codec/QuotedPrintableStretch.h"
#include "utility/file/BlockWriter.h"
#include "utility/text/Room.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvomime {

namespace {

struct EncodingName
{
    int value;
    const char* name;
};

// In the order in which a name is searched for them: a header may hold several words, and the
// first row found decides.
constexpr std::array<EncodingName, 5> kEncodings{{
    {CTE_QUOTED_PRINTABLE, "quoted-printable"},
    {CTE_7BIT, "7bit"},
    {CTE_8BIT, "8bit"},
    {CTE_BASE64, "base64"},
    {CTE_BINARY, "binary"},
}};

// The guess looks no further than this.
constexpr int kGuessedBytes = 4096;

// Whether a body in that encoding travels as other bytes than its own.
bool changesBytes(int encoding)
{
    return encoding == CTE_QUOTED_PRINTABLE || encoding == CTE_BASE64;
}

// What stands in front of the first NUL.
std::optional<QByteArray> copiedText(const BodyBytes& in)
{
    if (in.isInMemory())
        return in.first(in.view().find('\0'));
    auto text = in.all();
    const auto end = text ? text->indexOf('\0') : -1;
    if (end >= 0)
        text->truncate(end);
    return text;
}

} // namespace

int transferEncodingFromName(const QCString& name)
{
    for (const EncodingName& row : kEncodings) {
        if (name.find(row.name, 0, false) >= 0)
            return row.value;
    }
    return CTE_UNKNOWN;
}

QCString transferEncodingName(int encoding)
{
    for (const EncodingName& row : kEncodings) {
        if (row.value == encoding)
            return row.name;
    }
    return "7bit";
}

// 1. Blanks and line ends count as escapes, so ordinary prose is given base64. The encoder does
//    escape them, and with a blank in six characters its output is no shorter than base64.
int guessTransferEncoding(const char* data, int length)
{
    if (data == nullptr)
        return CTE_QUOTED_PRINTABLE;
    const int examined = std::clamp(length, 0, kGuessedBytes);
    const std::size_t escapes = countQpEscapes(data, static_cast<std::size_t>(examined));
    return escapes > 0 && static_cast<double>(escapes) > examined * 0.1 ? CTE_BASE64
                                                                        : CTE_QUOTED_PRINTABLE;
}

int guessTransferEncoding(const QByteArray& data)
{
    const auto examined = std::min<decltype(data.size())>(data.size(), kGuessedBytes);
    return guessTransferEncoding(data.constData(), static_cast<int>(examined));
}

std::optional<int> guessTransferEncoding(const BodyBytes& data)
{
    const auto examined = data.first(kGuessedBytes);
    return examined ? std::optional(guessTransferEncoding(*examined)) : std::nullopt;
}

void encodeTransfer(const QByteArray& in, QByteArray& out, int encoding)
{
    const auto length = static_cast<unsigned long>(in.size());
    if (encoding == CTE_QUOTED_PRINTABLE)
        out = encodeQp(in.constData(), length, true);
    else if (encoding == CTE_BASE64)
        out = encodeBase64(in.constData(), length, true);
    else
        out = copyOf({in.constData(), static_cast<std::size_t>(in.size())});
}

int encodeTransfer(const BodyBytes& in, QFile* file, int encoding)
{
    if (encoding == CTE_QUOTED_PRINTABLE)
        return encodeQp(in, file, true);
    if (encoding == CTE_BASE64)
        return encodeBase64(in, file, true);
    return writeRawData(in, file, nullptr);
}

std::optional<QByteArray> decodeTransfer(const BodyBytes& in, int encoding)
{
    if (encoding == CTE_QUOTED_PRINTABLE)
        return decodeQp(in, NulByte::EndsText);
    if (encoding == CTE_BASE64)
        return decodeBase64(in, NulByte::EndsText);
    return copiedText(in);
}

int decodeTransfer(const BodyBytes& in, QFile* file, int encoding, const ProgressCallback& callback)
{
    if (encoding == CTE_QUOTED_PRINTABLE)
        return decodeQp(in, file, callback);
    if (encoding == CTE_BASE64)
        return decodeBase64(in, file, callback);
    return writeRawData(in, file, callback);
}

std::optional<std::string_view> decodedBytes(const BodyBytes& body, int encoding, QByteArray& room)
{
    if (body.isInMemory() && !changesBytes(encoding))
        return body.view().substr(0, body.view().find('\0'));
    auto bytes = decodeTransfer(body, encoding);
    if (!bytes)
        return std::nullopt;
    room = *std::move(bytes);
    return std::string_view(room.constData(), static_cast<std::size_t>(room.size()));
}

int writeDecoded(const BodyBytes& body, int encoding, QFile* file, const ProgressCallback& callback)
{
    if (!body.isInMemory())
        return decodeTransfer(body, file, encoding, callback);
    QByteArray room;
    const auto bytes = decodedBytes(body, encoding, room);
    return bytes ? writeBlock(file, bytes->data(), static_cast<int>(bytes->size())) : -1;
}

} // namespace tarvomime
