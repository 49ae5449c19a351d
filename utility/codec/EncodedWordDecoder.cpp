// SPDX-License-Identifier: MIT
#include "utility/codec/EncodedWordDecoder.h"

#include "types/Ascii.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/codec/Base64.h"
#include "utility/codec/Charset.h"
#include "utility/codec/CharsetNames.h"
#include "utility/codec/QuotedPrintable.h"
#include "utility/codec/QuotedPrintableTables.h"
#include "utility/file/Pump.h"
#include "utility/text/Room.h"
#include "utility/text/Utf16Buffer.h"

#include <QVarLengthArray>
#include <algorithm>
#include <cstddef>
#include <optional>

namespace tarvomime {

namespace {

constexpr std::size_t kNotFound = std::string_view::npos;
constexpr std::string_view kWordStart = "=?";
constexpr std::string_view kWordEnd = "?=";

// Most senders of raw 8-bit headers that name no charset write Chinese.
int assumedCharset(int charset)
{
    return charset == CHARSET_UNKNOWN ? CHARSET_GB2312 : charset;
}

bool hasUnderscoreInEscape(std::string_view payload)
{
    for (std::size_t mark = payload.find('='); mark != kNotFound;
         mark = payload.find('=', mark + 1)) {
        if (payload.substr(mark + 1, 2).find('_') != kNotFound)
            return true;
    }
    return false;
}

// "_" stands for a space, written "=20" before the escapes are undone. Only inside a broken escape
// it makes a difference that the space is not written as such.
QByteArray withSpaces(std::string_view payload)
{
    QByteArray result(payload.data(), static_cast<int>(payload.size()));
    if (!hasUnderscoreInEscape(payload))
        std::replace(result.begin(), result.end(), '_', ' ');
    else if (result.size() + 2 * qint64{result.count('_')} <= QCString::longestLength)
        result.replace("_", "=20");
    else
        result.clear();
    return result;
}

using Bytes = QVarLengthArray<char, 512>;

unsigned hexValue(char c)
{
    return kQpHexValues[static_cast<unsigned char>(c)];
}

// The length of what a payload gives whose every escape has two digits, as nearly all have; nothing
// for any other.
std::optional<std::size_t> decodeWellFormed(std::string_view payload, char* out)
{
    char* next = out;
    for (std::size_t i = 0; i < payload.size(); ++i) {
        if (payload[i] != '=') {
            *next++ = payload[i] == '_' ? ' ' : payload[i];
            continue;
        }
        if (payload.size() - i < 3)
            return std::nullopt;
        const unsigned high = hexValue(payload[++i]);
        const unsigned low = hexValue(payload[++i]);
        if (high == kQpNoDigit || low == kQpNoDigit)
            return std::nullopt;
        *next++ = static_cast<char>(high << 4 | low);
    }
    return static_cast<std::size_t>(next - out);
}

std::string_view decodeQuoted(std::string_view text, Bytes& bytes)
{
    if (const auto length = decodeWellFormed(text, bytes.data()))
        return {bytes.constData(), *length};
    const QByteArray spaced = withSpaces(text);
    bytes.resize(static_cast<int>(spaced.size()) + kDecodingSlack);
    const std::string_view spacedText(spaced.constData(), static_cast<std::size_t>(spaced.size()));
    return {bytes.constData(), decodeQpTo(spacedText, bytes.data())};
}

// The bytes that a payload stands for, with `bytes` to hold them.
std::string_view decodePayload(char form, std::string_view payload, Bytes& bytes)
{
    // The transfer decodings read text, which ends at its NUL.
    const std::string_view text = payload.substr(0, payload.find('\0'));
    bytes.resize(static_cast<int>(text.size()) + kDecodingSlack);
    switch (asciiLower(form)) {
    case 'b':
        return {bytes.constData(), decodeBase64To(text, bytes.data())};
    case 'q':
        return decodeQuoted(text, bytes);
    default:
        return {};
    }
}

// The charset of a word whose "?" behind the name stands at `mark`.
//
// 1. The stretch taken for the name is as long as the place of its "?" in `text`: it ends two bytes
//    too far, and as much further as there is text before the word. Names are recognised by what
//    they contain, so that any charset named in that stretch counts.
int charsetOfWord(std::string_view text, std::size_t start, std::size_t mark)
{
    const std::size_t nameStart = start + kWordStart.size();
    const std::string_view name = text.substr(nameStart, mark - nameStart);
    const int exact = start == 0 ? charsetOfExactName(name) : int{CHARSET_UNKNOWN};
    return exact != CHARSET_UNKNOWN ? exact : charsetFromName(text.substr(nameStart, mark));
}

struct Word
{
    int charset = CHARSET_UNKNOWN;
    char form = '\0';
    std::string_view payload;
};

// The parts of the first word in `text`; of no known charset when it has no end either.
Word partsOfWord(std::string_view text, std::size_t start)
{
    const std::size_t nameStart = start + kWordStart.size();
    const std::size_t mark = text.find('?', nameStart);
    if (mark == kNotFound || mark + 3 >= text.size())
        return {};
    const std::size_t payloadStart = mark + 3;
    const std::size_t payloadEnd = text.find(kWordEnd, payloadStart);
    if (payloadEnd == kNotFound)
        return {};
    return {charsetOfWord(text, start, mark), text[mark + 1],
            text.substr(payloadStart, payloadEnd - payloadStart)};
}

// False when the word has no bytes to show. `start` is where its "=?" stands in `text`.
//
// 1. A word of an unknown form ("=?utf-8?X?...?=") shows nothing.
// 2. A word without its payload's end stays as it is, like one of an unknown charset.
bool appendWord(std::string_view text, std::size_t start, Utf16Buffer& out)
{
    const Word word = partsOfWord(text, start);
    if (word.charset == CHARSET_UNKNOWN) {
        out.appendLatin1(text);
        return true;
    }
    Bytes room;
    const std::string_view bytes = decodePayload(word.form, word.payload, room);
    appendFromCharset(bytes, word.charset, out);
    return !bytes.empty();
}

// The end of the word that starts at `start`, behind its "?=": the first one that does not come
// before the third "?". `kNotFound` when the body ends first.
std::size_t endOfWord(std::string_view body, std::size_t start)
{
    std::size_t mark = start + 1;
    for (int marks = 0; marks < 3; ++marks) {
        mark = body.find('?', mark + 1);
        if (mark == kNotFound)
            return kNotFound;
    }
    const std::size_t end = body.find(kWordEnd, mark);
    return end == kNotFound ? kNotFound : end + kWordEnd.size();
}

std::size_t skipWhiteSpace(std::string_view body, std::size_t position)
{
    while (position < body.size() && (isLineBreak(body[position]) || isBlank(body[position])))
        ++position;
    return position;
}

std::size_t endOfPlainText(std::string_view body, std::size_t position)
{
    while (position < body.size() && !isLineBreak(body[position]) &&
           body.compare(position, kWordStart.size(), kWordStart) != 0)
        ++position;
    return position;
}

void appendBody(std::string_view body, Utf16Buffer& out)
{
    std::size_t position = 0;
    while (position < body.size()) {
        if (isLineBreak(body[position])) {
            ++position;
            continue;
        }
        const std::size_t plainEnd = endOfPlainText(body, position);
        if (plainEnd > position) {
            out.appendLatin1(body.substr(position, plainEnd - position));
            position = plainEnd;
            continue;
        }
        const std::size_t end = endOfWord(body, position);
        if (end == kNotFound) {
            out.appendLatin1(body.substr(position));
            return;
        }
        appendWord(body.substr(position, end - position), 0, out);
        position = skipWhiteSpace(body, end);
    }
}

} // namespace

// Where this departs from RFC 2047:
//
// 1. White space behind a word is dropped before plain text too, not only before another word.
// 2. Plain text beside words is Latin-1, whatever `charset` says.
// 3. A word may be longer than 75 characters, hold white space and stand inside other text.
// 4. When a word does not end, all that follows is kept as it stands, line ends included. No later
//    word could end either, so that no search is made twice.
void decodeWords(std::string_view body, QString& out, int charset)
{
    if (body.find(kWordStart) == kNotFound) {
        decodeFromCharset(body, out, assumedCharset(charset));
        return;
    }
    Utf16Buffer units;
    const bool isHeld = hasMemoryFor([&] { appendBody(body, units); }) &&
                        out.size() <= QCString::longestLength - units.size() &&
                        hasMemoryFor([&] { out.append(units.data(), units.size()); });
    if (!isHeld)
        out = QString();
}

void decodeWord(std::string_view word, QString& out, int charset)
{
    if (word.empty())
        return;
    const std::size_t start = word.find(kWordStart);
    if (start == kNotFound) {
        decodeFromCharset(word, out, assumedCharset(charset));
        return;
    }
    Utf16Buffer units;
    const auto take = [&] {
        if (appendWord(word, start, units))
            out = units.toString();
    };
    if (!hasMemoryFor(take))
        out = QString();
}

} // namespace tarvomime
