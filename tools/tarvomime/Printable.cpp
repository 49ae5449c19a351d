// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Printable.h"

#include "extra/Utf8.h"

#include <algorithm>
#include <cstdio>

namespace tarvomime::tool {

namespace {

using Byte = unsigned char;

// Embeddings, overrides and isolates reorder what stands around them; the two separators end a
// line where no line feed is.
bool disturbsLines(char32_t codePoint)
{
    return (codePoint >= 0x2028 && codePoint <= 0x202E) ||
           (codePoint >= 0x2066 && codePoint <= 0x2069);
}

bool isControl(char32_t codePoint)
{
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

void appendEscape(QByteArray& out, char32_t codePoint)
{
    char escape[16];
    const char* format = codePoint < 0x80 ? "\\x%02X" : "\\u%04X";
    const int length =
        std::snprintf(escape, sizeof escape, format, static_cast<unsigned int>(codePoint));
    out.append(escape, length);
}

void appendByteEscape(QByteArray& out, Byte byte)
{
    char escape[8];
    out.append(escape, std::snprintf(escape, sizeof escape, "\\x%02X", byte));
}

void appendCharacter(QByteArray& out, const Utf8Character& character, std::string_view bytes)
{
    if (!character.valid)
        appendByteEscape(out, static_cast<Byte>(bytes.front()));
    else if (isControl(character.codePoint) || disturbsLines(character.codePoint))
        appendEscape(out, character.codePoint);
    else
        out.append(bytes.data(), static_cast<int>(bytes.size()));
}

QByteArray lineEndEscape(char c)
{
    if (c == '\n')
        return "\\n";
    return c == '\r' ? "\\r" : "\\t";
}

// The stretch that needs no look at its characters: printable ASCII.
std::size_t plainLength(std::string_view text)
{
    const auto odd = std::find_if(text.begin(), text.end(),
                                  [](char c) { return static_cast<Byte>(c - ' ') > '~' - ' '; });
    return static_cast<std::size_t>(odd - text.begin());
}

template <class LineEnd>
QByteArray escaped(std::string_view text, LineEnd appendLineEnd)
{
    QByteArray out;
    out.reserve(static_cast<int>(text.size()));
    while (!text.empty()) {
        const std::size_t plain = plainLength(text);
        out.append(text.data(), static_cast<int>(plain));
        text.remove_prefix(plain);
        if (text.empty())
            break;
        const char c = text.front();
        std::size_t length = 1;
        if (c == '\n' || c == '\r' || c == '\t') {
            appendLineEnd(out, text);
        } else {
            const Utf8Character character = firstUtf8Character(text);
            length = character.length;
            appendCharacter(out, character, text.substr(0, length));
        }
        text.remove_prefix(length);
    }
    return out;
}

} // namespace

QByteArray printableText(std::string_view text)
{
    return escaped(text, [](QByteArray& out, std::string_view rest) {
        const bool lineEnd = rest.size() > 1 && rest[0] == '\r' && rest[1] == '\n';
        if (rest.front() == '\r' && !lineEnd)
            out.append(lineEndEscape('\r'));
        else if (rest.front() != '\r')
            out.append(rest.front());
    });
}

QByteArray printableLine(std::string_view text)
{
    return escaped(text, [](QByteArray& out, std::string_view rest) {
        out.append(lineEndEscape(rest.front()));
    });
}

QByteArray printableText(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return printableText({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

QByteArray printableLine(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return printableLine({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace tarvomime::tool
