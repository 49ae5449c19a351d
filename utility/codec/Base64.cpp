// SPDX-License-Identifier: MIT
#include "utility/codec/Base64.h"

#include "types/QCString.h"
#include "utility/codec/Base64Stretch.h"
#include "utility/codec/Base64Tables.h"
#include "utility/file/Pump.h"

#include <algorithm>
#include <utility>

namespace tarvomime {

namespace {

constexpr int kLineLength = 76;
constexpr int kGroupsInLine = kLineLength / 4;
constexpr int kBytesInLine = kGroupsInLine * 3;
constexpr int kShortestStretch = 16;

class Base64Encoder
{
public:
    explicit Base64Encoder(bool breakLines) : mBreakLines(breakLines) {}

    void take(std::string_view block)
    {
        mNext = reinterpret_cast<const unsigned char*>(block.data());
        mEnd = mNext + block.size();
    }
    // One or two bytes that begin a group.
    std::string_view rest() const
    {
        return {reinterpret_cast<const char*>(mNext), static_cast<std::size_t>(mEnd - mNext)};
    }
    static bool isEnded() { return false; }

    char* run(char* next, char* limit)
    {
        next = writeStretch(next, limit);
        while (mEnd - mNext >= 3 && next < limit) {
            next = writeGroup(next, mNext[0], mNext[1], mNext[2]);
            mNext += 3;
            if (mBreakLines && (mColumn += 4) == kLineLength)
                next = writeStretch(breakLine(next), limit);
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
    // Whole lines and the groups of the last one, or any groups where lines are not broken.
    char* writeStretch(char* next, char* limit)
    {
        if (mColumn != 0)
            return next;
        if (mBreakLines)
            next = write(encodeBase64Lines, next, limit);
        if (!mBreakLines || mEnd - mNext < kBytesInLine) {
            char* const start = next;
            next = write(encodeBase64Run, next, limit);
            mColumn = mBreakLines ? static_cast<int>(next - start) : 0;
        }
        return next;
    }

    char* write(decltype(encodeBase64Run) encode, char* next, char* limit)
    {
        if (next >= limit)
            return next;
        const std::string_view in = rest();
        const Stretch done =
            encode(in.data(), in.size(), next, static_cast<std::size_t>(limit - next));
        mNext += done.read;
        return next + done.written;
    }

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

    const unsigned char* mNext = nullptr;
    const unsigned char* mEnd = nullptr;
    bool mBreakLines;
    int mColumn = 0;
};

class Base64Decoder
{
public:
    explicit Base64Decoder(NulByte nulByte) : mNulByte(nulByte) {}

    void take(std::string_view block)
    {
        mNext = block.data();
        mEnd = mNext + block.size();
    }
    // A group that is not complete yet is kept as its digits: any number of other bytes may stand
    // between them.
    static std::string_view rest() { return {}; }
    bool isEnded() const { return mIsEnded; }

    char* run(char* next, char* limit)
    {
        while (next < limit && mNext != mEnd) {
            char* const start = next;
            next = writeStretch(next, limit);
            // Past whatever the stretches cannot take.
            if (next == start)
                next = walkGroup(next);
            next = walkToLineEnd(next, limit);
        }
        return next;
    }

    char* finish(char* next) const { return next; }

private:
    // Regular lines, or the digits up to the first byte that is none.
    char* writeStretch(char* next, char* limit)
    {
        if (mHeldCount != 0)
            return next;
        while (mNext != mEnd && *mNext != '\0' && valueOf(*mNext) == kBase64Skipped)
            ++mNext;
        // No stretch takes less than this.
        if (mEnd - mNext < kShortestStretch ||
            valueOf(mNext[kShortestStretch - 1]) == kBase64Skipped)
            return next;
        for (const auto decode : {decodeBase64Lines, decodeBase64Run}) {
            const Stretch done = decode(mNext, static_cast<std::size_t>(mEnd - mNext), next,
                                        static_cast<std::size_t>(limit - next));
            mNext += done.read;
            next += done.written;
        }
        return next;
    }

    // The plain walk, but no further than to the line's end: behind it a new stretch may begin. One
    // that ran on into the next line would find each following line begun.
    char* walkToLineEnd(char* next, char* limit)
    {
        const auto isInLine = [this] { return mNext != mEnd && valueOf(*mNext) != kBase64Skipped; };
        for (int groups = 0; groups < kGroupsInLine && next < limit && isInLine(); ++groups)
            next = walkGroup(next);
        return next;
    }

    char* walkGroup(char* next)
    {
        unsigned char values[4];
        return takeGroup(values) ? writeGroup(next, values[0], values[1], values[2], values[3])
                                 : next;
    }

    static unsigned char valueOf(char c) { return kBase64Values[static_cast<unsigned char>(c)]; }

    // Four bytes in a row that are digits, as a group nearly always stands.
    bool takeFour(unsigned char (&values)[4])
    {
        if (mHeldCount != 0 || mEnd - mNext < 4)
            return false;
        std::transform(mNext, mNext + 4, values, valueOf);
        if (std::find(values, values + 4, kBase64Skipped) != values + 4)
            return false;
        mNext += 4;
        return true;
    }

    bool takeGroup(unsigned char (&values)[4])
    {
        if (takeFour(values))
            return true;
        std::copy_n(mHeld, 4, values);
        int collected = std::exchange(mHeldCount, 0);
        while (collected < 4 && mNext != mEnd) {
            const char c = *mNext++;
            const unsigned char value = valueOf(c);
            if (value != kBase64Skipped)
                values[collected++] = value;
            else if (c == '\0' && mNulByte == NulByte::EndsText)
                endText();
        }
        if (collected == 4)
            return true;
        std::copy_n(values, 4, mHeld);
        mHeldCount = collected;
        return false;
    }

    void endText()
    {
        mNext = mEnd;
        mIsEnded = true;
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

    const char* mNext = nullptr;
    const char* mEnd = nullptr;
    NulByte mNulByte;
    bool mIsEnded = false;
    // The values of a group that the block's end has cut.
    unsigned char mHeld[4] = {};
    int mHeldCount = 0;
};

quint64 base64Size(quint64 length, bool breakLines)
{
    const quint64 groups = (length + 2) / 3;
    const quint64 lines = (groups + kGroupsInLine - 1) / kGroupsInLine;
    return 4 * groups + (breakLines ? 2 * lines : 0);
}

std::size_t longestDecoding(std::size_t length)
{
    return static_cast<std::size_t>(roomFromBase64(length));
}

} // namespace

std::size_t encodedBase64Length(std::size_t length, bool breakLines)
{
    return static_cast<std::size_t>(base64Size(length, breakLines));
}

QByteArray encodeBase64(const char* data, unsigned long length, bool breakLines)
{
    // Nothing of what would become too long is looked at, and its length could wrap round.
    if (data == nullptr || length > static_cast<unsigned long>(QCString::longestLength))
        return {};
    return runInMemory(Base64Encoder(breakLines), std::string_view(data, length),
                       encodedBase64Length(length, breakLines))
        .value_or(QByteArray());
}

int encodeBase64(const char* data, unsigned long length, QFile* out, bool breakLines)
{
    return encodeBase64(BodyBytes(std::string_view(data, data == nullptr ? 0 : length)), out,
                        breakLines);
}

int encodeBase64(const BodyBytes& data, QFile* out, bool breakLines)
{
    return runToFile(Base64Encoder(breakLines), data, out, nullptr);
}

char* encodeBase64To(std::string_view bytes, char* out, bool breakLines)
{
    Base64Encoder encoder(breakLines);
    encoder.take(bytes);
    return encoder.finish(encoder.run(out, out + encodedBase64Length(bytes.size(), breakLines)));
}

qint64 roomForBase64(unsigned long length, bool breakLines)
{
    return length > kLongestForRoom ? -1 : static_cast<qint64>(base64Size(length, breakLines));
}

qint64 encodeBase64Into(std::string_view bytes, bool breakLines, GivenRoom given)
{
    return runIntoRoom(Base64Encoder(breakLines), bytes, roomForBase64(bytes.size(), breakLines),
                       given);
}

std::optional<QByteArray> decodeBase64(const BodyBytes& text, NulByte nulByte)
{
    return runInMemory(Base64Decoder(nulByte), text, longestDecoding(text.size()));
}

qint64 roomFromBase64(unsigned long length)
{
    return length > kLongestForRoom ? -1 : static_cast<qint64>((quint64{length} + 3) / 4 * 3);
}

qint64 decodeBase64Into(std::string_view text, GivenRoom given)
{
    return runIntoRoom(Base64Decoder(NulByte::IsData), text, roomFromBase64(text.size()), given);
}

QByteArray decodeBase64(std::string_view text, unsigned long* decodedLength, NulByte nulByte)
{
    auto decoded = text.empty()
                       ? std::nullopt
                       : runInMemory(Base64Decoder(nulByte), text, longestDecoding(text.size()));
    if (!decoded)
        return {};
    *decodedLength = static_cast<unsigned long>(decoded->size());
    return *std::move(decoded);
}

std::size_t decodeBase64To(std::string_view text, char* out)
{
    return runInto(Base64Decoder(NulByte::IsData), text, out);
}

QByteArray decodeBase64(const char* text, unsigned long* decodedLength)
{
    if (text == nullptr || decodedLength == nullptr)
        return {};
    return decodeBase64(std::string_view(text), decodedLength);
}

int decodeBase64(const char* text, int length, QFile* out, const ProgressCallback& callback)
{
    return decodeBase64(BodyBytes(text, length), out, callback);
}

int decodeBase64(const BodyBytes& text, QFile* out, const ProgressCallback& callback)
{
    return runToFile(Base64Decoder(NulByte::IsData), text, out, callback);
}

} // namespace tarvomime
