// SPDX-License-Identifier: MIT
#include "utility/codec/QuotedPrintable.h"

#include "types/QCString.h"
#include "utility/codec/QuotedPrintableStretch.h"
#include "utility/codec/QuotedPrintableTables.h"
#include "utility/file/Pump.h"

#include <algorithm>
#include <array>

namespace tarvomime {

namespace {

class QpEncoder
{
public:
    explicit QpEncoder(bool breakLines) : mBreakLines(breakLines) {}

    void take(std::string_view block)
    {
        mNext = block.data();
        mEnd = mNext + block.size();
    }
    static std::string_view rest() { return {}; }
    static bool isEnded() { return false; }

    char* run(char* next, char* limit)
    {
        if (!mBreakLines)
            next = writeStretch(encodeQpRun, next, limit);
        while (next < limit) {
            if (mBreakDue)
                next = writeSoftBreak(next);
            else if (mNext != mEnd)
                next = mBreakLines && mColumn == 0 ? startLine(next, limit)
                                                   : writeByte(next, *mNext++);
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
    char* writeStretch(decltype(encodeQpRun) encode, char* next, char* limit)
    {
        const Stretch done = encode(mNext, static_cast<std::size_t>(mEnd - mNext), next,
                                    static_cast<std::size_t>(limit - next));
        mNext += done.read;
        return next + done.written;
    }

    // All whole lines, and the first byte of what is left.
    char* startLine(char* next, char* limit)
    {
        next = writeStretch(encodeQpLines, next, limit);
        return mNext != mEnd && next < limit ? writeByte(next, *mNext++) : next;
    }

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
        mBreakDue = mBreakLines && c != '\r' && mColumn > kQpLastColumn;
        return next;
    }

    // A unit of its own: a block may end before it.
    char* writeSoftBreak(char* next)
    {
        mBreakDue = false;
        mColumn = 0;
        return std::copy(kQpSoftBreak.begin(), kQpSoftBreak.end(), next);
    }

    const char* mNext = nullptr;
    const char* mEnd = nullptr;
    bool mBreakLines;
    bool mBreakDue = false;
    // A run of CR is never broken and may be as long as the input.
    std::ptrdiff_t mColumn = 0;
};

class QpDecoder
{
public:
    explicit QpDecoder(NulByte nulByte) : mNulByte(nulByte) {}

    void take(std::string_view block)
    {
        mNext = block.data();
        mEnd = mNext + block.size();
        mRest = {};
    }
    // An escape that is not complete yet.
    std::string_view rest() const { return mRest; }
    bool isEnded() const { return mIsEnded; }

    char* run(char* next, char* limit)
    {
        while (next < limit && mNext != mEnd) {
            const Stretch done = decodeQpRun(mNext, static_cast<std::size_t>(mEnd - mNext), next,
                                             static_cast<std::size_t>(limit - next));
            mNext += done.read;
            next = walk(next + done.written, limit);
        }
        return next;
    }

    char* finish(char* next) const { return next; }

private:
    // The plain walk, past whatever has stopped a stretch: there a new one may begin.
    char* walk(char* next, char* limit)
    {
        constexpr std::ptrdiff_t kWalked = 64;
        const char* const stop = mNext + std::min(kWalked, mEnd - mNext);
        while (next < limit && mNext < stop) {
            if (*mNext == '=')
                next = readEscape(next);
            else if (endsText(*mNext))
                endText();
            else
                *next++ = *mNext++;
        }
        return next;
    }

    char* readEscape(char* next)
    {
        const auto left = mEnd - mNext;
        if (left >= 2 && mNext[1] == '\n') {
            mNext += 2;
        } else if ((left >= 2 && endsText(mNext[1])) || (left >= 3 && endsText(mNext[2]))) {
            endText();
        } else if (left < 3) {
            mRest = {mNext, static_cast<std::size_t>(left)};
            mNext = mEnd;
        } else {
            if (mNext[1] != '\r' || mNext[2] != '\n')
                *next++ = static_cast<char>(digit(mNext[1]) * 16 + digit(mNext[2]));
            mNext += 3;
        }
        return next;
    }

    bool endsText(char c) const { return c == '\0' && mNulByte == NulByte::EndsText; }

    void endText()
    {
        mNext = mEnd;
        mIsEnded = true;
    }

    static int digit(char c) { return kQpHexValues[static_cast<unsigned char>(c)]; }

    const char* mNext = nullptr;
    const char* mEnd = nullptr;
    NulByte mNulByte;
    bool mIsEnded = false;
    std::string_view mRest;
};

// A soft break for each 69 columns at most, and CR LF.
quint64 longestEncoding(quint64 columns, bool breakLines)
{
    return columns + (breakLines ? columns / (kQpLastColumn + 1) * kQpSoftBreak.size() + 2 : 0);
}

} // namespace

QByteArray encodeQp(const char* data, unsigned long length, bool breakLines)
{
    // Nothing of what would become too long is looked at.
    if (data == nullptr || length > static_cast<unsigned long>(QCString::longestLength))
        return {};
    const quint64 columns = length + 2 * quint64{countQpEscapes(data, length)};
    return runInMemory(QpEncoder(breakLines), std::string_view(data, length),
                       longestEncoding(columns, breakLines))
        .value_or(QByteArray());
}

qint64 roomForQp(unsigned long length, bool breakLines)
{
    return length > kLongestForRoom
               ? -1
               : static_cast<qint64>(longestEncoding(3 * quint64{length}, breakLines));
}

qint64 encodeQpInto(std::string_view bytes, bool breakLines, GivenRoom given)
{
    return runIntoRoom(QpEncoder(breakLines), bytes, roomForQp(bytes.size(), breakLines), given);
}

int encodeQp(const char* data, unsigned long length, QFile* out, bool breakLines)
{
    return encodeQp(BodyBytes(std::string_view(data, data == nullptr ? 0 : length)), out,
                    breakLines);
}

int encodeQp(const BodyBytes& data, QFile* out, bool breakLines)
{
    return runToFile(QpEncoder(breakLines), data, out, nullptr);
}

std::optional<QByteArray> decodeQp(const BodyBytes& text, NulByte nulByte)
{
    return runInMemory(QpDecoder(nulByte), text, text.size());
}

QByteArray decodeQp(std::string_view text, unsigned long* decodedLength, NulByte nulByte)
{
    auto decoded = runInMemory(QpDecoder(nulByte), text, text.size());
    if (!decoded)
        return {};
    *decodedLength = static_cast<unsigned long>(decoded->size());
    return *std::move(decoded);
}

qint64 roomFromQp(unsigned long length)
{
    return length > kLongestForRoom ? -1 : static_cast<qint64>(length);
}

qint64 decodeQpInto(std::string_view text, GivenRoom given)
{
    return runIntoRoom(QpDecoder(NulByte::IsData), text, roomFromQp(text.size()), given);
}

std::size_t decodeQpTo(std::string_view text, char* out)
{
    return runInto(QpDecoder(NulByte::IsData), text, out);
}

QByteArray decodeQp(const char* text, unsigned long* decodedLength)
{
    if (text == nullptr || decodedLength == nullptr)
        return {};
    return decodeQp(std::string_view(text), decodedLength);
}

int decodeQp(const char* text, int length, QFile* out, const ProgressCallback& callback)
{
    return decodeQp(BodyBytes(text, length), out, callback);
}

int decodeQp(const BodyBytes& text, QFile* out, const ProgressCallback& callback)
{
    return runToFile(QpDecoder(NulByte::IsData), text, out, callback);
}

} // namespace tarvomime
