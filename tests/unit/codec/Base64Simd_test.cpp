// SPDX-License-Identifier: MIT
#include "tests/support/AllStrings.h"
#include "tests/support/EveryProcessor.h"
#include "tests/support/ExactBuffer.h"
#include "tests/support/PlainCodecs.h"
#include "tests/support/RandomBytes.h"
#include "tests/support/RecordingFile.h"
#include "tests/support/SameDecoding.h"
#include "utility/codec/Base64.h"

#include <algorithm>

namespace base64_simd_test {

// The fast paths beside the plain ones: equal in every byte, every block and every call.
namespace {

void expectSameEncoding(const ExactBuffer& data, bool breakLines)
{
    const QByteArray fast = tarvomime::encodeBase64(data.data(), data.size(), breakLines);
    const QByteArray plain = tarvomime_plain::encodeBase64(data.data(), data.size(), breakLines);
    ASSERT_EQ(fast, plain) << data.size() << " bytes, broken " << breakLines;
}

void expectSameDecoding(const ExactBuffer& text)
{
    expectSameDecoding(text, tarvomime::decodeBase64, tarvomime_plain::decodeBase64);
}

const char* const kLineEnds[] = {"\r\n", "\n", "", "\r", " \r\n"};

QByteArray encoded(const QByteArray& data, const char* lineEnd)
{
    const QByteArray text = tarvomime_plain::encodeBase64(
        data.constData(), static_cast<unsigned long>(data.size()), true);
    return QByteArray(text).replace("\r\n", lineEnd);
}

TEST(Base64Twins, EncodeEveryLength)
{
    onEveryProcessor([] {
        for (int length = 0; length <= 300; ++length) {
            const ExactBuffer data(randomBytes(length, 1));
            for (const bool breakLines : {false, true})
                expectSameEncoding(data, breakLines);
        }
    });
}

TEST(Base64Twins, EncodeEveryAlignment)
{
    onEveryProcessor([] {
        for (std::size_t offset = 0; offset < 64; ++offset) {
            const ExactBuffer data(randomBytes(1000, 2), offset);
            for (const bool breakLines : {false, true})
                expectSameEncoding(data, breakLines);
        }
    });
}

TEST(Base64Twins, DecodeEveryLength)
{
    onEveryProcessor([] {
        for (int length = 0; length <= 300; ++length) {
            for (const char* lineEnd : kLineEnds)
                expectSameDecoding(ExactBuffer(encoded(randomBytes(length, 3), lineEnd)));
            expectSameDecoding(ExactBuffer(encoded(randomBytes(300, 4), "\r\n").left(length)));
        }
    });
}

TEST(Base64Twins, DecodeEveryAlignment)
{
    onEveryProcessor([] {
        for (std::size_t offset = 0; offset < 64; ++offset) {
            for (const char* lineEnd : kLineEnds)
                expectSameDecoding(ExactBuffer(encoded(randomBytes(1000, 5), lineEnd), offset));
        }
    });
}

TEST(Base64Twins, DecodeLinesOfEveryLength)
{
    onEveryProcessor([] {
        const QByteArray digits = encoded(randomBytes(1500, 8), "");
        for (int width = 1; width <= 140; ++width) {
            for (const char* lineEnd : kLineEnds) {
                QByteArray text;
                for (int start = 0; start < digits.size(); start += width)
                    text += digits.mid(start, width) + lineEnd;
                SCOPED_TRACE(width);
                expectSameDecoding(ExactBuffer(text));
            }
        }
    });
}

TEST(Base64Twins, DecodeABadByteAtEveryPosition)
{
    onEveryProcessor([] {
        for (const char* lineEnd : {"\r\n", "\n", ""}) {
            const QByteArray text = encoded(randomBytes(570, 6), lineEnd);
            for (int position = 0; position < text.size(); ++position) {
                for (const char bad : {'=', '\0', '\r', '\n', '-', '_', '\x80', '\xEB', '\xEC'}) {
                    QByteArray damaged = text;
                    damaged[position] = bad;
                    expectSameDecoding(ExactBuffer(damaged));
                    expectSameDecoding(ExactBuffer(QByteArray(text).insert(position, bad)));
                }
            }
        }
    });
}

// Around the ends of a vector, of a line and of four lines, which are looked at together.
TEST(Base64Twins, DecodeEveryShortStringWhereStretchesEnd)
{
    onEveryProcessor([] {
        for (const char* lineEnd : {"\r\n", "\n", ""}) {
            const QByteArray text = encoded(randomBytes(570, 9), lineEnd);
            for (const int stretchEnd : {0, 16, 32, 64, 76, 256, 304, 312}) {
                for (int start = std::max(stretchEnd - 3, 0); start <= stretchEnd + 3; ++start) {
                    forAllStrings(QByteArray("A=\n*\xEC\0", 6), 3, [&](const QByteArray& piece) {
                        expectSameDecoding(ExactBuffer(QByteArray(text).insert(start, piece)));
                    });
                }
            }
        }
    });
}

TEST(Base64Twins, DecodeEveryByteInEveryPlaceOfALine)
{
    onEveryProcessor([] {
        const QByteArray text = encoded(randomBytes(57 * 5, 7), "\r\n");
        for (int position = 0; position < 78; ++position) {
            for (int byte = 0; byte < 256; ++byte) {
                QByteArray changed = text;
                changed[position + 78] = static_cast<char>(byte);
                expectSameDecoding(ExactBuffer(changed));
            }
        }
    });
}

TEST(Base64Twins, DecodeRandomlyDamagedText)
{
    onEveryProcessor([] {
        for (unsigned seed = 0; seed < 60; ++seed) {
            std::mt19937 random(seed);
            QByteArray text = encoded(randomBytes(9000, seed), kLineEnds[seed % 5]);
            for (unsigned change = 0; change < seed * seed / 4; ++change) {
                const auto position = static_cast<int>(random() % unsigned(text.size()));
                text[position] = "=\r\n\xEC A*"[random() % 7];
            }
            SCOPED_TRACE(seed);
            expectSameDecoding(ExactBuffer(text));
        }
    });
}

TEST(Base64Twins, FilesGetTheSameBlocksAndCalls)
{
    onEveryProcessor([] {
        for (const int length : {24573, 24574, 24576, 24577, 32767, 32768, 32769, 200000}) {
            const QByteArray data = randomBytes(length, 8);
            for (const bool breakLines : {false, true}) {
                RecordingFile fast;
                RecordingFile plain;
                const auto size = static_cast<unsigned long>(length);
                EXPECT_EQ(tarvomime::encodeBase64(data.constData(), size, &fast, breakLines), 0);
                EXPECT_EQ(tarvomime_plain::encodeBase64(data.constData(), size, &plain, breakLines),
                          0);
                ASSERT_EQ(fast.writes(), plain.writes()) << length << breakLines;
                ASSERT_TRUE(fast.written() == plain.written()) << length << breakLines;
            }
            for (const char* lineEnd : kLineEnds) {
                const QByteArray text = encoded(data, lineEnd);
                RecordingFile fast;
                RecordingFile plain;
                const auto size = static_cast<int>(text.size());
                EXPECT_EQ(
                    tarvomime::decodeBase64(text.constData(), size, &fast, fast.notingCallback()),
                    0);
                EXPECT_EQ(tarvomime_plain::decodeBase64(text.constData(), size, &plain,
                                                        plain.notingCallback()),
                          0);
                ASSERT_EQ(fast.writes(), plain.writes()) << length << lineEnd;
                ASSERT_EQ(fast.calls(), plain.calls()) << length << lineEnd;
                ASSERT_TRUE(fast.written() == plain.written()) << length << lineEnd;
            }
        }
    });
}

} // namespace

} // namespace base64_simd_test
