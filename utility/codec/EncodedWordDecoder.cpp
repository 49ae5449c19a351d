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
    const char* in = payload.data();
    const char* const end = in + payload.size();
    while (in != end) {
        const char c = *in++;
        if (c != '=') {
            *next++ = c == '_' ? ' ' : c;
            continue;
        }
        if (end - in < 2)
            return std::nullopt;
        const unsigned high = hexValue(in[0]);
        const unsigned low = hexValue(in[1]);
        if ((high | low) >= kQpNoDigit)
            return std::nullopt;
        *next++ = static_cast<char>(high << 4 | low);
        in += 2;
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

// The parts of the word whose "?" behind the name stands at `mark`.
Word partsOfWord(std::string_view text, std::size_t start, std::size_t mark, std::size_t payloadEnd)
{
    const std::size_t payloadStart = mark + 3;
    return {charsetOfWord(text, start, mark), text[mark + 1],
            text.substr(payloadStart, payloadEnd - payloadStart)};
}

// The parts of the first word in `text`; of no known charset when it has no end either.
Word findPartsOfWord(std::string_view text, std::size_t start)
{
    const std::size_t mark = text.find('?', start + kWordStart.size());
    const std::size_t end = mark == kNotFound ? kNotFound : text.find(kWordEnd, mark + 3);
    return end == kNotFound ? Word() : partsOfWord(text, start, mark, end);
}

// False when the word, `text` in a body, has no bytes to show.
//
// 1. A word of an unknown form ("=?utf-8?X?...?=") shows nothing.
// 2. A word without its payload's end stays as it is, like one of an unknown charset.
bool appendWord(const Word& word, std::string_view text, Utf16Buffer& out)
{
    if (word.charset == CHARSET_UNKNOWN) {
        out.appendLatin1(text);
        return true;
    }
    Bytes room;
    const std::string_view bytes = decodePayload(word.form, word.payload, room);
    appendFromCharset(bytes, word.charset, out);
    return !bytes.empty();
}

// Where the "?" behind a word's name and behind its form stand, and that of the "?=" which ends it;
// `kNotFound` when the text ends first.
struct WordMarks
{
    std::size_t name = kNotFound;
    std::size_t form = kNotFound;
    std::size_t end = kNotFound;
};

std::size_t nextMark(std::string_view body, std::size_t mark)
{
    return mark == kNotFound ? kNotFound : body.find('?', mark + 1);
}

// The word that `body` starts with ends at the first "?=" that does not come before the third "?".
WordMarks marksOfWord(std::string_view body)
{
    WordMarks marks;
    marks.name = nextMark(body, 1);
    marks.form = nextMark(body, marks.name);
    marks.end = marks.form == kNotFound ? kNotFound : body.find(kWordEnd, marks.form + 1);
    return marks;
}

// A form is one letter; behind a longer one the payload begins too early, and may end there.
void appendWordOfBody(std::string_view text, const WordMarks& marks, Utf16Buffer& out)
{
    const bool isUsual = marks.form == marks.name + 2;
    appendWord(isUsual ? partsOfWord(text, 0, marks.name, marks.end) : findPartsOfWord(text, 0),
               text, out);
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
        const std::string_view rest = body.substr(position);
        const WordMarks marks = marksOfWord(rest);
        if (marks.end == kNotFound) {
            out.appendLatin1(rest);
            return;
        }
        const std::size_t length = marks.end + kWordEnd.size();
        appendWordOfBody(rest.substr(0, length), marks, out);
        position = skipWhiteSpace(body, position + length);
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
        if (appendWord(findPartsOfWord(word, start), word, units))
            out = units.toString();
    };
    if (!hasMemoryFor(take))
        out = QString();
}

} // namespace tarvomime
