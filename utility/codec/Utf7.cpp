// SPDX-License-Identifier: MIT
#include "utility/codec/Utf7.h"

#include "utility/codec/Base64Tables.h"
#include "utility/text/Room.h"

#include <cstddef>
#include <utility>

namespace tarvomime {

namespace {

// The value of a digit of a shifted run, or something larger.
unsigned digitValue(unsigned char byte)
{
    return kBase64Values[byte];
}

constexpr unsigned kDigitCount = kBase64Digits.size();

enum class State { Direct, AfterPlus, Shifted };

// The walk over the bytes. Every byte yields one character at most.
class Utf7Decoder
{
public:
    explicit Utf7Decoder(QChar* out) : mOut(out) {}

    void take(unsigned char byte)
    {
        if (byte >= 0x80) {
            mState = State::Direct;
            put(QChar::ReplacementCharacter);
        } else if (mState == State::Direct) {
            takeDirect(byte);
        } else if (const unsigned value = digitValue(byte); value < kDigitCount) {
            takeDigit(value);
        } else {
            leaveRun(byte);
        }
    }

    QChar* end() const { return mOut; }

private:
    void takeDirect(unsigned char byte)
    {
        if (byte == '+') {
            mState = State::AfterPlus;
            mPending = 0;
            mPendingBits = 0;
        } else {
            put(byte);
        }
    }

    // The third, sixth and eighth digit of each eight complete a character of 16 bits.
    void takeDigit(unsigned value)
    {
        mState = State::Shifted;
        mPending = mPending << 6 | value;
        mPendingBits += 6;
        if (mPendingBits >= 16) {
            mPendingBits -= 16;
            put(static_cast<ushort>(mPending >> mPendingBits));
        }
    }

    void leaveRun(unsigned char byte)
    {
        const bool escapedPlus = mState == State::AfterPlus && byte == '-';
        mState = State::Direct;
        if (escapedPlus)
            put('+');
        else if (byte != '-')
            put(byte);
    }

    void put(ushort unit) { *mOut++ = QChar(unit); }

    QChar* mOut;
    State mState = State::Direct;
    // Older digits leave at the top; no more than the last 20 bits are ever looked at.
    quint32 mPending = 0;
    int mPendingBits = 0;
};

} // namespace

// Where this is wider or narrower than RFC 2152:
//
// 1. No difference is made between direct and optional direct characters: every 7-bit byte outside
//    a run stands for itself.
// 2. Bits left over when a run ends are dropped, whatever they are.
// 3. An 8-bit byte shows as a replacement character, which also ends a run.
bool utf7ToUnicode(std::string_view bytes, QString& out)
{
    if (bytes.empty())
        return false;
    auto text = roomFor<QString>(bytes.size());
    if (!text) {
        out = QString();
        return false;
    }
    Utf7Decoder decoder(text->data());
    for (const char byte : bytes)
        decoder.take(static_cast<unsigned char>(byte));
    text->truncate(decoder.end() - text->constData());
    out = *std::move(text);
    return true;
}

} // namespace tarvomime
