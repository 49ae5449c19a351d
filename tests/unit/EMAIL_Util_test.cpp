// SPDX-License-Identifier: MIT
// What the face adds to the kernels behind it: overloads, flags and callbacks.
#include "utility/EMAIL_Util.h"

#include <limits>
#include <memory>
#include <random>

namespace email_util_test {

namespace {

int neverCalled()
{
    ADD_FAILURE() << "asked the callback";
    return -1;
}

// What one codec does into given room, beside the form that makes its own.
struct IntoRoomRow
{
    const char* name;
    qint64 (*room)(unsigned long length);
    qint64 (*into)(const char* data, unsigned long length, char* out, unsigned long room);
    QByteArray (*made)(const QByteArray& data);
};

void PrintTo(const IntoRoomRow& row, std::ostream* out)
{
    *out << row.name;
}

QByteArray decodedBy(QByteArray (*decode)(const char*, unsigned long*, const ProgressCallback&),
                     const QByteArray& text)
{
    unsigned long length = 0;
    return decode(text.constData(), &length, neverCalled);
}

template <int BreakLines>
constexpr IntoRoomRow kBase64Encoding{
    BreakLines != 0 ? "base64Lines" : "base64",
    [](unsigned long length) { return EMAIL_Util::encB64Room(length, BreakLines); },
    [](const char* data, unsigned long length, char* out, unsigned long room) {
        return EMAIL_Util::encB64To(data, length, BreakLines, out, room);
    },
    [](const QByteArray& data) {
        return EMAIL_Util::encB64(data.constData(), static_cast<unsigned long>(data.size()),
                                  BreakLines);
    }};

template <int BreakLines>
constexpr IntoRoomRow kQpEncoding{
    BreakLines != 0 ? "quotedPrintableLines" : "quotedPrintable",
    [](unsigned long length) { return EMAIL_Util::encQpRoom(length, BreakLines); },
    [](const char* data, unsigned long length, char* out, unsigned long room) {
        return EMAIL_Util::encQpTo(data, length, BreakLines, out, room);
    },
    [](const QByteArray& data) {
        return EMAIL_Util::encQp(data.constData(), static_cast<unsigned long>(data.size()),
                                 BreakLines);
    }};

constexpr IntoRoomRow kBase64Decoding{
    "fromBase64", EMAIL_Util::decB64Room, EMAIL_Util::decB64To,
    [](const QByteArray& text) { return decodedBy(EMAIL_Util::decB64, text); }};
constexpr IntoRoomRow kQpDecoding{
    "fromQuotedPrintable", EMAIL_Util::decQpRoom, EMAIL_Util::decQpTo,
    [](const QByteArray& text) { return decodedBy(EMAIL_Util::decQp, text); }};

// Bytes without a NUL, at which the forms that make their own room would end: any, or those that
// the encodings are made of.
QByteArray randomBytes(std::mt19937& random, std::size_t length)
{
    constexpr std::string_view alphabet = "ABCDabcd0123+/==\r\n=3D \xEC";
    const bool isAny = random() % 2 == 0;
    QByteArray result;
    for (std::size_t i = 0; i < length; ++i)
        result.append(isAny ? static_cast<char>(1 + random() % 255)
                            : alphabet[random() % alphabet.size()]);
    return result;
}

class IntoRoom : public testing::TestWithParam<IntoRoomRow>
{
protected:
    // In a block of exactly that size, so that a byte behind it is found.
    static qint64 run(const QByteArray& data, std::unique_ptr<char[]>& out, unsigned long size)
    {
        out = std::make_unique<char[]>(size);
        return GetParam().into(data.constData(), static_cast<unsigned long>(data.size()), out.get(),
                               size);
    }
};

const QByteArray bytes = "a line that is long enough to be broken once it was encoded, and its end";

} // namespace

TEST(EMAIL_Util, EveryFlagButZeroBreaksLines)
{
    for (const int flag : {1, 2, -1}) {
        EXPECT_EQ(EMAIL_Util::encB64(bytes.constData(), 72, flag),
                  EMAIL_Util::encB64(bytes.constData(), 72, 1))
            << flag;
        EXPECT_EQ(EMAIL_Util::encQp(bytes.constData(), 72, flag),
                  EMAIL_Util::encQp(bytes.constData(), 72, 1))
            << flag;
    }
    EXPECT_TRUE(EMAIL_Util::encB64(bytes.constData(), 72, 1).contains("\r\n"));
    EXPECT_FALSE(EMAIL_Util::encB64(bytes.constData(), 72, 0).contains("\r\n"));
}

TEST(EMAIL_Util, DecodingInMemoryAsksNoCallback)
{
    unsigned long length = 0;
    EXPECT_EQ(EMAIL_Util::decB64("YQ==", &length, neverCalled), "a");
    EXPECT_EQ(EMAIL_Util::decQp("=61", &length, neverCalled), "a");
    QByteArray out;
    EMAIL_Util::decFromCTE("YQ==", out, CTE_BASE64, neverCalled);
    EXPECT_EQ(out, "a");
}

TEST(EMAIL_Util, GuessesTheSameForBytesAndTheirArray)
{
    for (const QByteArray& sample : {QByteArray(), QByteArray("text"), QByteArray(100, '\xE4')}) {
        EXPECT_EQ(EMAIL_Util::guessRightCTE(sample),
                  EMAIL_Util::guessRightCTE(sample.constData(), int(sample.size())))
            << sample.toStdString();
    }
}

TEST(EMAIL_Util, SplitsAtTheFirstOrAtEverySeparator)
{
    QCString left;
    QCString right;
    EMAIL_Util::split("=", " a = b=c ", left, right, true);
    EXPECT_EQ(left, "a");
    EXPECT_EQ(right, "b=c");
    EXPECT_EQ(EMAIL_Util::split("=", "a=b=c", false),
              (QValueList<QCString>{QCString("a"), QCString("b"), QCString("c")}));
}

TEST_P(IntoRoom, GivesWhatTheFormWithItsOwnRoomGives)
{
    std::mt19937 random(7);
    for (std::size_t length = 1; length < 700; length += 1 + length / 90) {
        const QByteArray data = randomBytes(random, length);
        std::unique_ptr<char[]> out;
        const auto room = static_cast<unsigned long>(GetParam().room(length));
        const qint64 written = run(data, out, room);
        ASSERT_GE(written, 0) << data.toHex().constData();
        ASSERT_EQ(QByteArray(out.get(), static_cast<int>(written)), GetParam().made(data))
            << data.toHex().constData();
    }
}

TEST_P(IntoRoom, RefusesARoomThatIsOneByteShort)
{
    const QByteArray data(100, 'A');
    const auto room = static_cast<unsigned long>(GetParam().room(100));
    auto out = std::make_unique<char[]>(room);
    out[0] = '?';
    EXPECT_EQ(GetParam().into(data.constData(), 100, out.get(), room - 1), -1);
    EXPECT_EQ(out[0], '?');
    EXPECT_EQ(GetParam().into(data.constData(), 100, nullptr, room), -1);
    EXPECT_EQ(GetParam().into(nullptr, 100, out.get(), room), -1);
    EXPECT_EQ(GetParam().into(data.constData(), 0, out.get(), room), 0);
}

TEST_P(IntoRoom, ReckonsRoomBeyondTwoGigabytes)
{
    char out = '?';
    for (const unsigned long length : {0x7FFFFFBFUL, 0x7FFFFFFFUL, 0x80000000UL, 0xFFFFFFFFUL}) {
        const qint64 room = GetParam().room(length);
        EXPECT_GE(room, qint64(length) / 4 * 3) << length;
        EXPECT_LE(room, 4 * qint64(length)) << length;
        // Refused before anything is looked at.
        EXPECT_EQ(GetParam().into(&out, length, &out, 1), -1) << length;
    }
    const qint64 longest = GetParam().room(std::numeric_limits<unsigned long>::max());
    EXPECT_EQ(longest<0, sizeof(unsigned long)> 4);
}

INSTANTIATE_TEST_SUITE_P(Codecs, IntoRoom,
                         testing::Values(kBase64Encoding<0>, kBase64Encoding<1>, kQpEncoding<0>,
                                         kQpEncoding<1>, kBase64Decoding, kQpDecoding),
                         [](const auto& row) { return row.param.name; });

TEST(EMAIL_Util, TellsTheExactRoomForBase64)
{
    for (const unsigned long length : {0UL, 1UL, 56UL, 57UL, 58UL, 1000UL}) {
        for (const int breakLines : {0, 1})
            EXPECT_EQ(
                EMAIL_Util::encB64Room(length, breakLines),
                EMAIL_Util::encB64(QByteArray(int(length), 'x').constData(), length, breakLines)
                    .size())
                << length;
    }
}

TEST(EMAIL_Util, DecodesPastANulIntoGivenRoom)
{
    char out[16];
    EXPECT_EQ(EMAIL_Util::decB64To("YQ==\0YQ==", 9, out, sizeof out), 2);
    EXPECT_EQ(EMAIL_Util::decQpTo("a\0b", 3, out, sizeof out), 3);
}

} // namespace email_util_test
