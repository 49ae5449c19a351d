// SPDX-License-Identifier: MIT
#include "utility/codec/QuotedPrintable.h"

#include "utility/codec/Sinks.h"

#include <algorithm>

namespace tarvomime {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
/// A line is broken once it has passed this column.
constexpr int kLastColumn = 68;

// A byte that is no digit; see the list in the header.
constexpr unsigned char kNoDigit = 70;

constexpr std::array<unsigned char, 256> makeHexValues()
{
    std::array<unsigned char, 256> values{};
    values.fill(kNoDigit);
    for (unsigned char value = 0; value < 16; ++value) {
        const char digit = kHexDigits[value];
        values[static_cast<unsigned char>(digit)] = value;
        values[static_cast<unsigned char>(digit | 0x20)] = value;
    }
    return values;
}

constexpr std::array<unsigned char, 256> kHexValues = makeHexValues();

class QpEncoder
{
public:
    QpEncoder(const char* data, std::size_t length, bool breakLines)
        : mNext(data), mEnd(data + length), mBreakLines(breakLines)
    {
    }

    char* run(char* next, char* limit)
    {
        while (next < limit) {
            if (mBreakDue)
                next = writeSoftBreak(next);
            else if (mNext != mEnd)
                next = writeByte(next, *mNext++);
            else
                break;
        }
        return next;
    }

    char* finish(char* next)
    {
        if (mBreakLines && mColumn != 0) {
            *next++ = '\r';
            *next++ = '\n';
        }
        return next;
    }

private:
    char* writeByte(char* next, char c)
    {
        const auto byte = static_cast<unsigned char>(c);
        char* const start = next;
        if (isQpEscaped(byte)) {
            *next++ = '=';
            *next++ = kHexDigits[byte >> 4];
            *next++ = kHexDigits[byte & 0x0F];
        } else {
            *next++ = c;
        }
        mColumn += static_cast<int>(next - start);
        mBreakDue = mBreakLines && c != '\r' && mColumn > kLastColumn;
        return next;
    }

    // A unit of its own: a block may end before it.
    char* writeSoftBreak(char* next)
    {
        mBreakDue = false;
        mColumn = 0;
        *next++ = '=';
        *next++ = '\r';
        *next++ = '\n';
        return next;
    }

    const char* mNext;
    const char* mEnd;
    bool mBreakLines;
    bool mBreakDue = false;
    // A run of CR is never broken and may be as long as the input.
    std::ptrdiff_t mColumn = 0;
};

class QpDecoder
{
public:
    explicit QpDecoder(std::string_view text) : mNext(text.data()), mEnd(mNext + text.size()) {}

    char* run(char* next, char* limit)
    {
        while (next < limit && mNext != mEnd) {
            if (*mNext == '=')
                next = readEscape(next);
            else
                *next++ = *mNext++;
        }
        return next;
    }

    char* finish(char* next) const { return next; }

private:
    char* readEscape(char* next)
    {
        const auto left = mEnd - mNext;
        if (left >= 2 && mNext[1] == '\n') {
            mNext += 2;
        } else if (left < 3) {
            mNext = mEnd;
        } else {
            if (mNext[1] != '\r' || mNext[2] != '\n')
                *next++ = static_cast<char>(digit(mNext[1]) * 16 + digit(mNext[2]));
            mNext += 3;
        }
        return next;
    }

    static int digit(char c) { return kHexValues[static_cast<unsigned char>(c)]; }

    const char* mNext;
    const char* mEnd;
};

// A size that would not fit wraps round to less than this, and no memory has this much room.
constexpr unsigned long kLongestInput = ~0UL / 8;

// Each byte as an escape, a soft break for each 69 columns, CR LF.
std::size_t longestEncoding(unsigned long length)
{
    return 3 * length + 9 * length / 68 + 3;
}

} // namespace

QByteArray encodeQp(const char* data, unsigned long length, bool breakLines)
{
    if (data == nullptr || length > kLongestInput)
        return {};
    return runInMemory(QpEncoder(data, length, breakLines), longestEncoding(length))
        .value_or(QByteArray());
}

int encodeQp(const char* data, unsigned long length, QFile* out, bool breakLines)
{
    return runToFile(QpEncoder(data, data == nullptr ? 0 : length, breakLines), out, nullptr);
}

QByteArray decodeQp(std::string_view text, unsigned long* decodedLength)
{
    auto decoded = runInMemory(QpDecoder(text), text.size());
    if (!decoded)
        return {};
    *decodedLength = static_cast<unsigned long>(decoded->size());
    return *std::move(decoded);
}

std::size_t decodeQpTo(std::string_view text, char* out)
{
    return runInto(QpDecoder(text), out, text.size());
}

QByteArray decodeQp(const char* text, unsigned long* decodedLength)
{
    if (text == nullptr || decodedLength == nullptr)
        return {};
    return decodeQp(std::string_view(text), decodedLength);
}

int decodeQp(const char* text, int length, QFile* out, const ProgressCallback& callback)
{
    const std::size_t used = text == nullptr ? 0 : static_cast<std::size_t>(std::max(length, 0));
    return runToFile(QpDecoder({text, used}), out, callback);
}

} // namespace tarvomime
