// SPDX-License-Identifier: MIT
#include "extra/HeaderValue.h"

#include "types/Ascii.h"
#include "utility/EMAIL_Util.h"

#include <algorithm>

namespace tarvomime {

namespace {

constexpr int kLongestLine = 998;
// Leaves room for the colon, a blank and something to say.
constexpr int kLongestName = 200;
// RFC 5322 wishes for 78, and the field's name stands on the first line.
constexpr int kPreferredLine = 76;
constexpr int kPreferredFirstLine = 60;

Failure because(const char* reason)
{
    return {QString::fromLatin1(reason)};
}

bool isControl(ushort c)
{
    return (c < 0x20 && c != '\t') || (c >= 0x7F && c < 0xA0);
}

// One line of a raw value, without its line end.
Result<void> checkLine(const QByteArray& line, bool isFirst)
{
    if (!isFirst && (line.isEmpty() || !isBlank(line[0])))
        return because("a line break would end the field");
    if (!isFirst && line.trimmed().isEmpty())
        return because("a line of blanks may be taken for the end of the header");
    if (line.size() > kLongestLine)
        return because("a line is longer than 998 bytes");
    for (const char c : line) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte == 0)
            return because("it holds a NUL");
        if (byte >= 0x80)
            return because("it holds 8-bit bytes");
        if (isControl(byte))
            return because("it holds a control character");
    }
    return {};
}

// Breaks a line before a blank wherever the next word would make it longer than preferred.
QByteArray folded(const QByteArray& line)
{
    QByteArray out;
    int lineStart = 0;
    int wordStart = 0;
    while (wordStart < line.size()) {
        int end = wordStart;
        while (end < line.size() && isBlank(line[end]))
            ++end;
        const bool hasWord = end < line.size();
        while (end < line.size() && !isBlank(line[end]))
            ++end;
        const int room = lineStart == 0 ? kPreferredFirstLine : kPreferredLine;
        if (hasWord && wordStart > lineStart && end - lineStart > room) {
            out += "\r\n";
            lineStart = wordStart;
        }
        out += line.mid(wordStart, end - wordStart);
        wordStart = end;
    }
    return out;
}

} // namespace

Result<void> checkHeaderValue(const QString& value)
{
    for (const QChar c : value) {
        if (c == u'\n' || c == u'\r' || c == QChar(0x2028) || c == QChar(0x2029))
            return because("it holds a line break");
        if (c.isNull())
            return because("it holds a NUL");
        if (isControl(c.unicode()))
            return because("it holds a control character");
    }
    if (!value.isValidUtf16())
        return because("it holds half a character");
    return {};
}

Result<void> checkRawHeaderValue(const QByteArray& value)
{
    int at = 0;
    while (at <= value.size()) {
        int end = int(value.indexOf('\n', at));
        end = end < 0 ? int(value.size()) : end;
        const bool hasLineEnd = end < value.size();
        const int cr = hasLineEnd && end > at && value[end - 1] == '\r' ? 1 : 0;
        Result<void> line = checkLine(value.mid(at, end - at - cr), at == 0);
        if (!line)
            return line;
        at = end + 1;
    }
    return {};
}

Result<QCString> writeHeaderValue(const QString& value, int charset)
{
    const Result<void> text = checkHeaderValue(value);
    if (!text)
        return text.failure();
    QCString encoded;
    EMAIL_Util::encode_2047_String(value, charset, encoded);
    QByteArray bytes = encoded;
    // Encoded words are folded already.
    if (!bytes.contains('\n'))
        bytes = folded(bytes);
    const Result<void> raw = checkRawHeaderValue(bytes);
    if (!raw)
        return raw.failure();
    return QCString(bytes);
}

Result<void> checkHeaderName(const QByteArray& name)
{
    if (name.isEmpty())
        return because("a field needs a name");
    if (name.size() > kLongestName)
        return because("the name is too long");
    const bool isName = std::all_of(name.begin(), name.end(),
                                    [](char c) { return c > ' ' && c < '\x7F' && c != ':'; });
    return isName ? Result<void>() : because("a name is printable ASCII without blanks and colons");
}

} // namespace tarvomime
