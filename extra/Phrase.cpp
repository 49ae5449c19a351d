// SPDX-License-Identifier: MIT
#include "extra/Phrase.h"

#include "extra/AddressCharacters.h"

#include <QByteArray>
#include <algorithm>

namespace tarvomime {

namespace {

// RFC 2047: a word has at most 75 characters, twelve of them around the payload.
constexpr int kLongestPayload = 75 - 12;
// Longer plain names are folded too.
constexpr int kLongestPlain = 70;

bool isAscii(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c < QChar(0x80); });
}

// The characters that stand for themselves in the Q form of a phrase (RFC 2047, section 5).
bool isPlainInQ(char c)
{
    const char lower = static_cast<char>(c | 0x20);
    return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') || c == '!' || c == '*' ||
           c == '+' || c == '-' || c == '/';
}

QByteArray encodedQ(const QByteArray& bytes)
{
    QByteArray out;
    for (const char c : bytes) {
        if (isPlainInQ(c))
            out += c;
        else if (c == ' ')
            out += '_';
        else
            out += '=' + QByteArray(1, c).toHex().toUpper();
    }
    return out;
}

// The end of the longest piece from `start` on that fits a word, between characters.
int pieceEnd(const QByteArray& bytes, int start, bool isBase64)
{
    const int size = static_cast<int>(bytes.size());
    int end = start;
    int room = kLongestPayload;
    for (int next = start; next < size;) {
        do
            ++next;
        while (next < size && (bytes.at(next) & 0xC0) == 0x80);
        const QByteArray character = bytes.mid(end, next - end);
        const int needed =
            isBase64 ? (next - start + 2) / 3 * 4 : static_cast<int>(encodedQ(character).size());
        if (needed > room)
            break;
        room -= isBase64 ? 0 : needed;
        end = next;
    }
    return end;
}

QByteArray encodedWords(const QString& name)
{
    const QByteArray bytes = name.toUtf8();
    const bool isBase64 = encodedQ(bytes).size() > bytes.toBase64().size();
    QByteArray out;
    for (int start = 0; start < bytes.size();) {
        const int end = pieceEnd(bytes, start, isBase64);
        const QByteArray piece = bytes.mid(start, end - start);
        out += start == 0 ? "" : "\r\n\t";
        out += isBase64 ? "=?utf-8?B?" + piece.toBase64() : "=?utf-8?Q?" + encodedQ(piece);
        out += "?=";
        start = end;
    }
    return out;
}

} // namespace

QString encodedPhrase(const QString& name)
{
    const bool isPlain = isAscii(name) && name.size() <= kLongestPlain && isPhraseOfAtoms(name) &&
                         !name.contains(QLatin1String("=?"));
    return isPlain ? name : QString::fromLatin1(encodedWords(name));
}

} // namespace tarvomime
