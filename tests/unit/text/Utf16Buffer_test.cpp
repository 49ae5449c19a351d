// SPDX-License-Identifier: MIT
#include "utility/text/Utf16Buffer.h"

#include <random>

namespace utf16_buffer_test {

using tarvomime::Utf16Buffer;

namespace {

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// Between two letters, so that what stands before and behind must survive.
QString appended(const QByteArray& bytes)
{
    Utf16Buffer buffer;
    buffer.appendLatin1("<");
    // An array of its own, so that a checker of memory sees a read behind it.
    const std::vector<char> exact(bytes.begin(), bytes.end());
    buffer.appendUtf8({exact.data(), exact.size()});
    buffer.appendLatin1(">");
    return buffer.toString();
}

QString expected(const QByteArray& bytes)
{
    return '<' + QString::fromUtf8(bytes.constData(), static_cast<int>(bytes.size())) + '>';
}

} // namespace

TEST(Utf16Buffer, Pieces)
{
    Utf16Buffer buffer;
    EXPECT_EQ(buffer.size(), 0);
    EXPECT_EQ(buffer.toString(), "");
    buffer.appendLatin1("a\xE9");
    buffer.append(QString("b"));
    *buffer.extend(1) = 'c';
    buffer.appendUtf8("\xC3\xA9");
    buffer.appendUtf8({});
    buffer.append(QString());
    EXPECT_EQ(buffer.toString(), QString::fromUtf8("a\xC3\xA9"
                                                   "bc\xC3\xA9"));
    buffer.appendLatin1(viewOf(QByteArray(100000, 'x')));
    EXPECT_EQ(buffer.size(), 100005);
}

TEST(Utf16Buffer, EveryCharacterOfUtf8)
{
    for (char32_t code = 0; code < 0x110000 && !HasFailure(); ++code) {
        if (code >= 0xD800 && code < 0xE000)
            continue;
        const QByteArray bytes = QString::fromUcs4(&code, 1).toUtf8();
        EXPECT_EQ(appended(bytes), expected(bytes)) << static_cast<unsigned>(code);
    }
}

TEST(Utf16Buffer, EveryThreeBytesAfterALead)
{
    for (const int lead :
         {0x41, 0x80, 0xC1, 0xC2, 0xE0, 0xE1, 0xED, 0xEF, 0xF0, 0xF1, 0xF4, 0xF5}) {
        for (int pair = 0; pair < 0x10000 && !HasFailure(); pair += 3) {
            const char bytes[] = {static_cast<char>(lead), static_cast<char>(pair >> 8),
                                  static_cast<char>(pair), '\x80'};
            for (int length = 1; length <= 4; ++length)
                EXPECT_EQ(appended(QByteArray(bytes, length)), expected(QByteArray(bytes, length)));
        }
    }
}

TEST(Utf16Buffer, ABadByteAtEveryPlace)
{
    const QByteArray clean =
        QByteArray("plain ASCII text, \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 and on");
    for (int place = 0; place < clean.size(); ++place) {
        for (const char bad : {'\x80', '\xFF', '\xC3', '\xF0', '\0'}) {
            QByteArray bytes = clean;
            bytes[place] = bad;
            EXPECT_EQ(appended(bytes), expected(bytes)) << place;
            EXPECT_EQ(appended(bytes.left(place + 1)), expected(bytes.left(place + 1))) << place;
        }
    }
}

TEST(Utf16Buffer, RandomBytes)
{
    const unsigned seed = 3629;
    std::mt19937 random(seed);
    const QByteArray pieces[] = {"a",
                                 "word",
                                 "\xC3\xA9",
                                 "\xE2\x82\xAC",
                                 "\xF0\x9F\x98\x80",
                                 "\xEF\xBB\xBF",
                                 "\xED\xA0\x80",
                                 "\x80",
                                 "\xC1\xBF",
                                 "\xC0\x80",
                                 "long ascii words"};
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        QByteArray bytes;
        for (unsigned left = random() % 20; left > 0; --left)
            bytes += pieces[random() % (round % 2 == 0 ? 5 : std::size(pieces))];
        EXPECT_EQ(appended(bytes), expected(bytes)) << seed << " " << round;
    }
}

} // namespace utf16_buffer_test
