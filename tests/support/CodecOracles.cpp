// SPDX-License-Identifier: MIT
#include "tests/support/CodecOracles.h"

#include <string>

namespace oracle {

namespace {

const QByteArray kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string bits(unsigned value, int count)
{
    std::string result;
    for (int i = count - 1; i >= 0; --i)
        result += (value >> i & 1) != 0 ? '1' : '0';
    return result;
}

QByteArray base64Digits(const std::string& bitString)
{
    QByteArray result;
    for (std::size_t i = 0; i < bitString.size(); i += 6)
        result += kDigits.at(std::stoi(bitString.substr(i, 6), nullptr, 2));
    return result;
}

// -1: passed over.
int base64Value(char c)
{
    if (c == '=')
        return 64;
    if (static_cast<unsigned char>(c) >= 0xEC)
        return 0;
    return static_cast<int>(kDigits.indexOf(c));
}

int hexValue(char c)
{
    const auto at = static_cast<int>(QByteArray("0123456789ABCDEFabcdef").indexOf(c));
    if (c == '\0' || at < 0)
        return 70;
    return at < 16 ? at : at - 6;
}

bool isPlain(char c)
{
    return c > '#' && c < '\x7f' && c != '=';
}

} // namespace

QByteArray encodeBase64(const QByteArray& data, bool breakLines)
{
    std::string bitString;
    for (const char c : data)
        bitString += bits(static_cast<unsigned char>(c), 8);
    bitString.append((6 - bitString.size() % 6) % 6, '0');
    QByteArray unbroken = base64Digits(bitString);
    unbroken.append(QByteArray((4 - unbroken.size() % 4) % 4, '='));
    if (!breakLines)
        return unbroken;
    QByteArray result;
    for (int i = 0; i < unbroken.size(); i += 76)
        result += unbroken.mid(i, 76) + "\r\n";
    return result;
}

QByteArray decodeBase64(const QByteArray& text)
{
    QByteArray significant;
    for (const char c : text) {
        if (base64Value(c) >= 0)
            significant += c;
    }
    QByteArray result;
    for (int i = 0; i + 4 <= significant.size(); i += 4) {
        const int a = base64Value(significant[i]);
        const int b = base64Value(significant[i + 1]);
        const int c = base64Value(significant[i + 2]);
        const int d = base64Value(significant[i + 3]);
        const bool lastIsPad = significant[i + 3] == '=';
        result += static_cast<char>((a * 4 + b / 16) % 256);
        if (lastIsPad && significant[i + 2] == '=')
            continue;
        result += static_cast<char>((b % 16 * 16 + c / 4) % 256);
        if (!lastIsPad)
            result += static_cast<char>((c % 4 * 64 + d) % 256);
    }
    return result;
}

QByteArray encodeQp(const QByteArray& data, bool breakLines)
{
    QByteArray result;
    QByteArray line;
    for (const char c : data) {
        line += isPlain(c) ? QByteArray(1, c) : "=" + QByteArray(1, c).toHex().toUpper();
        if (breakLines && line.size() > 68 && c != '\r') {
            result += line + "=\r\n";
            line.clear();
        }
    }
    return result + line + (breakLines && !line.isEmpty() ? "\r\n" : "");
}

QByteArray decodeQp(const QByteArray& text)
{
    QByteArray result;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] != '=') {
            result += text[i];
        } else if (text.mid(i + 1, 1) == "\n") {
            i += 1;
        } else if (i + 2 >= text.size()) {
            break;
        } else {
            if (text.mid(i + 1, 2) != "\r\n")
                result +=
                    static_cast<char>((hexValue(text[i + 1]) * 16 + hexValue(text[i + 2])) % 256);
            i += 2;
        }
    }
    return result;
}

} // namespace oracle
