// SPDX-License-Identifier: MIT
#include "utility/codec/Base64.h"

#include "utility/codec/Base64Tables.h"
#include "utility/codec/Sinks.h"

#include <algorithm>

namespace tarvomime {

namespace {

constexpr int kLineLength = 76;
constexpr int kGroupsInLine = kLineLength / 4;

class Base64Encoder
{
public:
    Base64Encoder(const char* data, std::size_t length, bool breakLines)
        : mNext(reinterpret_cast<const unsigned char*>(data)), mEnd(mNext + length),
          mBreakLines(breakLines)
    {
    }

    char* run(char* next, char* limit)
    {
        while (mEnd - mNext >= 3 && next < limit) {
            next = writeGroup(next, mNext[0], mNext[1], mNext[2]);
            mNext += 3;
            mColumn += 4;
            if (mColumn == kLineLength && mBreakLines)
                next = breakLine(next);
        }
        return next;
    }

    char* finish(char* next)
    {
        const auto left = mEnd - mNext;
        if (left > 0) {
            next = writeGroup(next, mNext[0], left > 1 ? mNext[1] : 0, 0);
            std::fill(next - (3 - left), next, kBase64Pad);
            mColumn += 4;
        }
        return mBreakLines && mColumn != 0 ? breakLine(next) : next;
    }

private:
    static char* writeGroup(char* next, unsigned a, unsigned b, unsigned c)
    {
        next[0] = kBase64Digits[a >> 2];
        next[1] = kBase64Digits[(a & 0x03) << 4 | b >> 4];
        next[2] = kBase64Digits[(b & 0x0F) << 2 | c >> 6];
        next[3] = kBase64Digits[c & 0x3F];
        return next + 4;
    }

    char* breakLine(char* next)
    {
        mColumn = 0;
        *next++ = '\r';
        *next++ = '\n';
        return next;
    }

    const unsigned char* mNext;
    const unsigned char* mEnd;
    bool mBreakLines;
    int mColumn = 0;
};

class Base64Decoder
{
public:
    explicit Base64Decoder(std::string_view text) : mNext(text.data()), mEnd(mNext + text.size()) {}

    char* run(char* next, char* limit)
    {
        unsigned char values[4];
        while (next < limit && takeGroup(values))
            next = writeGroup(next, values[0], values[1], values[2], values[3]);
        return next;
    }

    char* finish(char* next) const { return next; }

private:
    bool takeGroup(unsigned char (&values)[4])
    {
        int collected = 0;
        while (collected < 4 && mNext != mEnd) {
            const unsigned char value = kBase64Values[static_cast<unsigned char>(*mNext++)];
            if (value != kBase64Skipped)
                values[collected++] = value;
        }
        return collected == 4;
    }

    static char* writeGroup(char* next, unsigned a, unsigned b, unsigned c, unsigned d)
    {
        *next++ = static_cast<char>(a * 4 + b / 16);
        if (c == kBase64PadValue && d == kBase64PadValue)
            return next;
        *next++ = static_cast<char>(b % 16 * 16 + c / 4);
        if (d == kBase64PadValue)
            return next;
        *next++ = static_cast<char>(c % 4 * 64 + d);
        return next;
    }

    const char* mNext;
    const char* mEnd;
};

// A size that would not fit wraps round to less than this, and no memory has this much room.
constexpr unsigned long kLongestInput = ~0UL / 8;

std::size_t encodedLength(unsigned long length, bool breakLines)
{
    const std::size_t groups = (length + 2) / 3;
    const std::size_t lines = (groups + kGroupsInLine - 1) / kGroupsInLine;
    return 4 * groups + (breakLines ? 2 * lines : 0);
}

} // namespace

QByteArray encodeBase64(const char* data, unsigned long length, bool breakLines)
{
    if (data == nullptr || length > kLongestInput)
        return {};
    return runInMemory(Base64Encoder(data, length, breakLines), encodedLength(length, breakLines))
        .value_or(QByteArray());
}

int encodeBase64(const char* data, unsigned long length, QFile* out, bool breakLines)
{
    return runToFile(Base64Encoder(data, data == nullptr ? 0 : length, breakLines), out, nullptr);
}

void appendBase64(QByteArray& out, std::string_view bytes)
{
    const auto start = out.size();
    const auto length = static_cast<int>(encodedLength(bytes.size(), false));
    out.resize(start + length);
    char* const next = out.data() + start;
    Base64Encoder encoder(bytes.data(), bytes.size(), false);
    encoder.finish(encoder.run(next, next + length));
}

QByteArray decodeBase64(std::string_view text, unsigned long* decodedLength)
{
    if (text.empty())
        return {};
    auto decoded = runInMemory(Base64Decoder(text), (text.size() + 3) / 4 * 3);
    if (!decoded)
        return {};
    *decodedLength = static_cast<unsigned long>(decoded->size());
    return *std::move(decoded);
}

std::size_t decodeBase64To(std::string_view text, char* out)
{
    return runInto(Base64Decoder(text), out, text.size());
}

QByteArray decodeBase64(const char* text, unsigned long* decodedLength)
{
    if (text == nullptr || decodedLength == nullptr)
        return {};
    return decodeBase64(std::string_view(text), decodedLength);
}

int decodeBase64(const char* text, int length, QFile* out, const ProgressCallback& callback)
{
    const std::size_t used = text == nullptr ? 0 : static_cast<std::size_t>(std::max(length, 0));
    return runToFile(Base64Decoder({text, used}), out, callback);
}

} // namespace tarvomime
