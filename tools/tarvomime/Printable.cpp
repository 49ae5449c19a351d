// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Printable.h"

#include <algorithm>
#include <cstdio>

namespace tarvomime::tool {

namespace {

using Byte = unsigned char;

/// One character of a text: its code point and length, or a single byte that is no UTF-8.
struct Character
{
    char32_t codePoint;
    std::size_t length;
    bool valid;
};

std::size_t lengthByLead(Byte lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool isScalarOfLength(char32_t codePoint, std::size_t length)
{
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    return codePoint >= smallest[length] && codePoint <= 0x10FFFF && !surrogate;
}

Character firstCharacter(std::string_view text)
{
    const auto lead = static_cast<Byte>(text.front());
    const std::size_t length = lengthByLead(lead);
    const Character lone{lead, 1, false};
    if (length == 1)
        return {lead, 1, true};
    if (length == 0 || length > text.size())
        return lone;
    char32_t codePoint = lead & (0x7Fu >> length);
    for (const char c : text.substr(1, length - 1)) {
        const auto byte = static_cast<Byte>(c);
        if ((byte & 0xC0) != 0x80)
            return lone;
        codePoint = codePoint << 6 | (byte & 0x3Fu);
    }
    return isScalarOfLength(codePoint, length) ? Character{codePoint, length, true} : lone;
}

/// Embeddings, overrides and isolates reorder what stands around them; the two separators end a
/// line where no line feed is.
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

void appendCharacter(QByteArray& out, const Character& character, std::string_view bytes)
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

/// The stretch that needs no look at its characters: printable ASCII.
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
            const Character character = firstCharacter(text);
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
