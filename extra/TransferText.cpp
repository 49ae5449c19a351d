// SPDX-License-Identifier: MIT
#include "extra/TransferText.h"

#include "utility/EMAIL_Util.h"

#include <algorithm>

namespace tarvomime {

namespace {

constexpr int kLongestLine = 998;
constexpr int kLongestEncodedLine = 76;

int lineEnd(const QByteArray& bytes, int start)
{
    const auto end = bytes.indexOf("\r\n", start);
    return static_cast<int>(end < 0 ? bytes.size() : end);
}

// Whether bytes can go as they are: 7-bit, and CR and LF only together.
bool isPlain(const QByteArray& bytes)
{
    for (int start = 0; start <= bytes.size();) {
        const int end = lineEnd(bytes, start);
        if (end - start > kLongestLine)
            return false;
        const bool plain = std::all_of(bytes.begin() + start, bytes.begin() + end, [](char c) {
            const auto byte = static_cast<unsigned char>(c);
            return byte != 0 && byte < 0x80 && c != '\r' && c != '\n';
        });
        if (!plain)
            return false;
        start = end + 2;
    }
    return true;
}

bool isEscapedAnywhere(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return c == '=' || byte >= 0x7F || (byte < ' ' && c != '\t');
}

// Quoted-printable that keeps lines and blanks, unlike the library's encoder, which is made for
// bytes of any kind and writes one endless line (RFC 2045, section 6.7).
class LineEncoder
{
public:
    explicit LineEncoder(const QByteArray& bytes) : mBytes(bytes) {}

    QByteArray run()
    {
        for (int start = 0; start <= mBytes.size();) {
            const int end = lineEnd(mBytes, start);
            encodeLine(start, end);
            if (end < mBytes.size())
                mOut += "\r\n";
            start = end + 2;
        }
        return mOut;
    }

private:
    void encodeLine(int start, int end)
    {
        mColumn = 0;
        for (int at = start; at < end; ++at) {
            // The last piece of a line needs no room for the "=" of a soft break.
            const int room = kLongestEncodedLine - mColumn - (at + 1 < end ? 1 : 0);
            const bool escaped = isEscaped(at, end);
            if ((escaped ? 3 : 1) > room) {
                mOut += "=\r\n";
                mColumn = 0;
            }
            append(mBytes.at(at), escaped || isMisread(at));
        }
    }

    bool isEscaped(int at, int end) const
    {
        const char c = mBytes.at(at);
        const bool isBlank = c == ' ' || c == '\t';
        return isEscapedAnywhere(c) || (isBlank && at + 1 == end);
    }

    // At the start of a line, "." ends a message on its way and "From " begins one in an mbox.
    bool isMisread(int at) const
    {
        return mColumn == 0 &&
               (mBytes.at(at) == '.' || (mBytes.at(at) == 'F' && mBytes.mid(at, 5) == "From "));
    }

    void append(char c, bool escaped)
    {
        if (escaped)
            mOut += '=' + QByteArray(1, c).toHex().toUpper();
        else
            mOut += c;
        mColumn += escaped ? 3 : 1;
    }

    const QByteArray& mBytes;
    QByteArray mOut;
    int mColumn = 0;
};

// Whether so much would be escaped that nobody could read it anyway.
bool isMostlyEscapes(const QByteArray& bytes)
{
    const auto escapes = std::count_if(bytes.begin(), bytes.end(), isEscapedAnywhere);
    return 3 * (escapes - 2 * bytes.count("\r\n")) > bytes.size();
}

QByteArray bytesOf(const QString& text, int charset)
{
    if (charset == CHARSET_UTF_8)
        return text.toUtf8();
    QCString bytes;
    EMAIL_Util::encWithCharset(bytes, text, charset);
    return bytes;
}

// Never UTF-7, which the library does not write; a text with a NUL would end there elsewhere.
bool canHold(int charset, const QString& text)
{
    return charset != CHARSET_UNKNOWN && charset != CHARSET_UTF_7 && !text.contains(QChar(0)) &&
           EMAIL_Util::canEncodeByCharset(text, charset);
}

} // namespace

TransferText transferText(const QString& text, int charset)
{
    QString wire = text;
    wire.replace('\n', QLatin1String("\r\n"));
    const bool ascii =
        std::all_of(wire.begin(), wire.end(), [](QChar c) { return c < QChar(0x80); });
    TransferText out;
    if (!ascii)
        out.charset = canHold(charset, wire) ? charset : int(CHARSET_UTF_8);
    out.bytes = bytesOf(wire, ascii ? int(CHARSET_UTF_8) : out.charset);
    if (isPlain(out.bytes))
        return out;
    const QByteArray decoded = out.bytes;
    out.cte = isMostlyEscapes(decoded) ? CTE_BASE64 : CTE_QUOTED_PRINTABLE;
    if (out.cte == CTE_BASE64)
        EMAIL_Util::encWithCTE(decoded, out.bytes, CTE_BASE64);
    else
        out.bytes = LineEncoder(decoded).run();
    return out;
}

} // namespace tarvomime
