// SPDX-License-Identifier: MIT
#include "utility/codec/TransferEncoding.h"

#include "utility/codec/Base64.h"
#include "utility/codec/QuotedPrintable.h"
#include "utility/codec/QuotedPrintableStretch.h"
#include "utility/file/BlockWriter.h"

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

/// The guess looks no further than this.
constexpr int kGuessedBytes = 4096;

unsigned long asLength(int length)
{
    return static_cast<unsigned long>(std::max(length, 0));
}

QByteArray copyUpToNul(std::string_view text)
{
    return QByteArray(text.data(), static_cast<int>(std::min(text.find('\0'), text.size())));
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

void encodeTransfer(const QByteArray& in, QByteArray& out, int encoding)
{
    const auto length = static_cast<unsigned long>(in.size());
    if (encoding == CTE_QUOTED_PRINTABLE)
        out = encodeQp(in.constData(), length, true);
    else if (encoding == CTE_BASE64)
        out = encodeBase64(in.constData(), length, true);
    else
        out = QByteArray(in.constData(), in.size());
}

int encodeTransfer(const char* data, int length, QFile* file, int encoding)
{
    if (encoding == CTE_QUOTED_PRINTABLE)
        return encodeQp(data, asLength(length), file, true);
    if (encoding == CTE_BASE64)
        return encodeBase64(data, asLength(length), file, true);
    return writeRawData(data, length, file, nullptr);
}

void decodeTransfer(const QCString& in, QByteArray& out, int encoding)
{
    // The decoders get the slice itself: ending it with a NUL would copy it.
    unsigned long decodedLength = 0;
    if (encoding == CTE_QUOTED_PRINTABLE)
        out = decodeQp(in.view(), &decodedLength, NulByte::EndsText);
    else if (encoding == CTE_BASE64)
        out = decodeBase64(in.view(), &decodedLength, NulByte::EndsText);
    else
        out = copyUpToNul(in.view());
}

int decodeTransfer(const char* data, int length, QFile* file, int encoding,
                   const ProgressCallback& callback)
{
    if (encoding == CTE_QUOTED_PRINTABLE)
        return decodeQp(data, length, file, callback);
    if (encoding == CTE_BASE64)
        return decodeBase64(data, length, file, callback);
    return writeRawData(data, length, file, callback);
}

} // namespace tarvomime
