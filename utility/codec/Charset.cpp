// SPDX-License-Identifier: MIT
#include "utility/codec/Charset.h"

#include "utility/EMAIL_Numbers.h"
#include "utility/codec/CharsetNames.h"
#include "utility/codec/DoubleByteCharset.h"
#include "utility/codec/SingleByteCharset.h"
#include "utility/codec/Utf7.h"
#include "utility/codec/WordChunks.h"
#include "utility/text/Room.h"
#include "utility/text/Utf16Buffer.h"

#include <QTextCodec>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <numeric>

namespace tarvomime {

namespace {

using CodecTable = std::array<QTextCodec*, kCharsetCount>;

CodecTable findCodecs()
{
    CodecTable codecs{};
    for (int charset = 0; charset < kCharsetCount; ++charset)
        codecs[static_cast<std::size_t>(charset)] = QTextCodec::codecForName(codecName(charset));
    return codecs;
}

// A codec of the platform reckons its room in int, four bytes for each unit.
constexpr int kLongestForCodec = QCString::longestLength / 4;
// The string type asks for three, in the type of an array's sizes.
constexpr bool kHasLongArrays = sizeof(QByteArray().size()) > sizeof(int);

qint64 utf8Size(const QString& text)
{
    return std::accumulate(text.cbegin(), text.cend(), qint64{0},
                           [](qint64 sum, QChar unit) { return sum + kUtf8Length(unit); });
}

// Whether `text` in `charset` is no text any more, or cannot be reckoned with. Only what is very
// long is looked at.
bool mayBecomeTooLong(const QString& text, int charset)
{
    if (text.size() <= kLongestForCodec)
        return false;
    if (text.size() > QCString::longestLength)
        return true;
    if (charset == CHARSET_UTF_8)
        return !kHasLongArrays || utf8Size(text) > QCString::longestLength || !text.isValidUtf16();
    return SingleByteCharset::of(charset) == nullptr;
}

// For a text of nothing but what the charset's tables hold; any other is the codec's.
bool decodeByPairs(std::string_view bytes, QString& out, int charset)
{
    const DoubleByteCharset* table = DoubleByteCharset::of(charset);
    if (table == nullptr || bytes.empty())
        return false;
    out = QString(static_cast<int>(bytes.size()), Qt::Uninitialized);
    const auto count = table->decode(bytes, reinterpret_cast<ushort*>(out.data()));
    out.truncate(count.value_or(0));
    return count.has_value();
}

bool appendByPairs(std::string_view bytes, int charset, Utf16Buffer& out)
{
    const DoubleByteCharset* table = DoubleByteCharset::of(charset);
    if (table == nullptr)
        return false;
    const auto room = static_cast<int>(bytes.size());
    const auto count = table->decode(bytes, out.extend(room));
    out.shrink(room - count.value_or(0));
    return count.has_value();
}

bool encodeByPairs(QByteArray& bytes, const QString& text, int charset)
{
    const DoubleByteCharset* table = DoubleByteCharset::of(charset);
    return table != nullptr && table->encode(text, bytes);
}

// What the array's own search takes byte by byte.
bool holdsNul(const QByteArray& bytes)
{
    return std::memchr(bytes.constData(), '\0', static_cast<std::size_t>(bytes.size())) != nullptr;
}

// UTF-7 shares the codec of ISO 8859-1 but is not read by it.
const SingleByteCharset* readingTable(int charset)
{
    return charset == CHARSET_UTF_7 ? nullptr : SingleByteCharset::of(charset);
}

} // namespace

QTextCodec* codecOf(int charset)
{
    // A look-up by name takes a lock and compares names; the answers never change.
    static const CodecTable codecs = findCodecs();
    return codecs[static_cast<std::size_t>(knownCharset(charset))];
}

std::optional<QByteArray> bytesInCharset(const QString& text, int charset)
{
    if (mayBecomeTooLong(text, charset))
        return std::nullopt;
    // The string type's own conversion is faster, and differs for broken text only.
    if (charset == CHARSET_UTF_8 && text.isValidUtf16())
        return text.toUtf8();
    const SingleByteCharset* table = SingleByteCharset::of(charset);
    QByteArray bytes;
    if (table != nullptr ? table->encode(text, bytes) : encodeByPairs(bytes, text, charset))
        return bytes;
    return bytesThroughCodec(text, codecOf(charset));
}

QByteArray bytesThroughCodec(const QString& text, const QTextCodec* codec)
{
    return codec != nullptr ? codec->fromUnicode(text) : QByteArray(text.toLatin1().constData());
}

void encodeWithCharset(QCString& out, const QString& text, int charset)
{
    if (charset == CHARSET_UTF_7)
        return;
    std::optional<QByteArray> bytes;
    hasMemoryFor([&] { bytes = bytesInCharset(text, charset); });
    out = bytes ? QCString::fromBytes(*bytes) : QCString::fromLiteral("");
}

void encodeThroughCodec(QCString& out, const QString& text, int charset, const QTextCodec* codec)
{
    if (charset != CHARSET_UTF_7)
        out = QCString::fromBytes(bytesThroughCodec(text, codec));
}

void decodeFromCharset(std::string_view bytes, QString& out, int charset)
{
    // No charset has more units than bytes.
    const bool isHeld = bytes.size() <= std::size_t{QCString::longestLength} && hasMemoryFor([&] {
                            const SingleByteCharset* table = readingTable(charset);
                            if (decodeByPairs(bytes, out, charset))
                                return;
                            if (table == nullptr || bytes.empty()) {
                                decodeThroughCodec(bytes, out, charset, codecOf(charset));
                                return;
                            }
                            out = QString(static_cast<int>(bytes.size()), Qt::Uninitialized);
                            table->decode(bytes, reinterpret_cast<ushort*>(out.data()));
                        });
    if (!isHeld)
        out = QString();
}

void appendFromCharset(std::string_view bytes, int charset, Utf16Buffer& out)
{
    if (charset == CHARSET_UTF_8) {
        out.appendUtf8(bytes);
    } else if (const SingleByteCharset* table = readingTable(charset)) {
        table->decode(bytes, out.extend(static_cast<int>(bytes.size())));
    } else if (!appendByPairs(bytes, charset, out)) {
        QString text;
        decodeThroughCodec(bytes, text, charset, codecOf(charset));
        out.append(text);
    }
}

void decodeThroughCodec(std::string_view bytes, QString& out, int charset, const QTextCodec* codec)
{
    if (bytes.empty())
        return;
    const int size = static_cast<int>(bytes.size());
    if (charset == CHARSET_UTF_7) {
        utf7ToUnicode(bytes, out);
        return;
    }
    std::unique_ptr<QTextDecoder> decoder;
    if (codec != nullptr && charset != CHARSET_UTF_8)
        decoder.reset(codec->makeDecoder());
    // A decoder waits for the rest of a character that the text's end cuts, and shows nothing for
    // it.
    out = decoder ? decoder->toUnicode(bytes.data(), size) : QString::fromUtf8(bytes.data(), size);
}

bool canEncodeByCharset(const QString& text, int charset)
{
    if (charset == CHARSET_UTF_8)
        return true;
    QByteArray bytes;
    bool isHeld = false;
    return hasMemoryFor([&] { isHeld = encodeIfHeld(bytes, text, charset); }) && isHeld;
}

bool encodeIfHeld(QByteArray& bytes, const QString& text, int charset)
{
    if (mayBecomeTooLong(text, charset))
        return false;
    const SingleByteCharset* table = SingleByteCharset::of(charset);
    if (table == nullptr && encodeByPairs(bytes, text, charset))
        return !holdsNul(bytes);
    if (table == nullptr || charset == CHARSET_UNKNOWN)
        return encodeIfHeldThroughCodec(bytes, text, charset, codecOf(charset));
    return table->encode(text, bytes) && !holdsNul(bytes);
}

bool encodeIfHeldThroughCodec(QByteArray& bytes, const QString& text, int charset,
                              const QTextCodec* codec)
{
    if (charset == CHARSET_UNKNOWN || codec == nullptr)
        return false;
    bytes = codec->fromUnicode(text);
    return codec->toUnicode(bytes.constData()) == text;
}

} // namespace tarvomime
