// SPDX-License-Identifier: MIT
#include "tests/support/AllStrings.h"
#include "tests/support/EveryProcessor.h"
#include "tests/support/ExactBuffer.h"
#include "tests/support/PlainCodecs.h"
#include "tests/support/RandomBytes.h"
#include "tests/support/RecordingFile.h"
#include "tests/support/SameDecoding.h"
#include "utility/codec/QuotedPrintable.h"
#include "utility/codec/QuotedPrintableStretch.h"
#include "utility/codec/QuotedPrintableTables.h"

namespace quoted_printable_simd_test {

// The fast paths beside the plain ones: equal in every byte, every block and every call.
namespace {

// Bytes of which about `escapes` in 16 are escaped, and now and then a CR or two.
QByteArray text(int length, unsigned escapes, unsigned seed)
{
    std::mt19937 random(seed);
    QByteArray bytes(length, '\0');
    for (char& byte : bytes) {
        const bool escaped = random() % 16 < escapes;
        byte = escaped ? "\r\r\n =\xE9\x80!"[random() % 8] : "abcXYZ$~<>019.D"[random() % 15];
    }
    return bytes;
}

constexpr unsigned kDensities[] = {0, 1, 4, 12, 16};

void expectSameEncoding(const ExactBuffer& data)
{
    for (const bool breakLines : {false, true}) {
        const QByteArray fast = tarvomime::encodeQp(data.data(), data.size(), breakLines);
        const QByteArray plain = tarvomime_plain::encodeQp(data.data(), data.size(), breakLines);
        ASSERT_EQ(fast, plain) << testing::PrintToString(QByteArray(data.data(), int(data.size())));
    }
}

void expectSameDecoding(const ExactBuffer& text)
{
    expectSameDecoding(text, tarvomime::decodeQp, tarvomime_plain::decodeQp);
}

QByteArray encoded(const QByteArray& data)
{
    return tarvomime_plain::encodeQp(data.constData(), static_cast<unsigned long>(data.size()),
                                     true);
}

TEST(QpTwins, EncodeEveryLength)
{
    onEveryProcessor([] {
        for (int length = 0; length <= 300; ++length) {
            for (const unsigned density : kDensities)
                expectSameEncoding(ExactBuffer(text(length, density, unsigned(length))));
        }
    });
}

TEST(QpTwins, EncodeEveryAlignment)
{
    onEveryProcessor([] {
        for (std::size_t offset = 0; offset < 64; ++offset) {
            for (const unsigned density : kDensities)
                expectSameEncoding(ExactBuffer(text(1000, density, unsigned(offset)), offset));
        }
    });
}

TEST(QpTwins, EncodeEveryByteAtEveryPosition)
{
    onEveryProcessor([] {
        for (int position = 0; position < 160; ++position) {
            for (const char byte : "\r\n= #$~\x7F\x80\xFF") {
                QByteArray data = text(240, 1, 9);
                data[position] = byte;
                expectSameEncoding(ExactBuffer(data));
            }
        }
        for (int byte = 0; byte < 256; ++byte)
            expectSameEncoding(ExactBuffer(QByteArray(200, static_cast<char>(byte))));
    });
}

TEST(QpTwins, EncodeRunsOfCr)
{
    onEveryProcessor([] {
        for (int before = 0; before < 80; ++before) {
            for (const int run : {1, 2, 25, 100, 3000}) {
                const QByteArray data =
                    QByteArray(before, 'a') + QByteArray(run, '\r') + text(200, 4, 1);
                expectSameEncoding(ExactBuffer(data));
            }
        }
    });
}

// The fast path encodes block by block: the begun line is carried into the next one.
TEST(QpTwins, EncodeRunsOfCrAtTheEndOfABlock)
{
    onEveryProcessor([] {
        for (int before = 5900; before < 6300; before += 3) {
            for (const int run : {1, 25, 60}) {
                const QByteArray data =
                    QByteArray(before, 'a') + QByteArray(run, '\r') + text(8000, 4, 2);
                SCOPED_TRACE(testing::Message() << before << ' ' << run);
                expectSameEncoding(ExactBuffer(data));
            }
        }
    });
}

// Bytes that end a line, move its end, or are escaped, wherever the line could be broken.
TEST(QpTwins, EncodeEveryShortStringAroundALinesEnd)
{
    onEveryProcessor([] {
        const QByteArray tail = text(100, 4, 2);
        for (int column = 60; column <= 72; ++column) {
            forAllStrings("a=\r\n", 4, [&](const QByteArray& piece) {
                expectSameEncoding(ExactBuffer(QByteArray(column, 'a') + piece + tail));
            });
        }
    });
}

TEST(QpTwins, EncodeLongText)
{
    onEveryProcessor([] {
        for (unsigned seed = 0; seed < 16; ++seed) {
            SCOPED_TRACE(seed);
            expectSameEncoding(ExactBuffer(text(20000 + int(seed), seed, seed)));
        }
    });
}

TEST(QpTwins, CountEscapes)
{
    onEveryProcessor([] {
        for (int length = 0; length <= 300; ++length) {
            const ExactBuffer data(randomBytes(length, unsigned(length)));
            std::size_t count = 0;
            for (const char c : data.view())
                count += tarvomime::isQpEscaped(static_cast<unsigned char>(c)) ? 1 : 0;
            ASSERT_EQ(tarvomime::countQpEscapes(data.data(), data.size()), count) << length;
        }
    });
}

TEST(QpTwins, DecodeEveryLength)
{
    onEveryProcessor([] {
        for (int length = 0; length <= 300; ++length) {
            for (const unsigned density : kDensities)
                expectSameDecoding(ExactBuffer(encoded(text(300, density, 3)).left(length)));
        }
    });
}

TEST(QpTwins, DecodeEveryAlignment)
{
    onEveryProcessor([] {
        for (std::size_t offset = 0; offset < 64; ++offset) {
            for (const unsigned density : kDensities)
                expectSameDecoding(ExactBuffer(encoded(text(600, density, 4)), offset));
        }
    });
}

TEST(QpTwins, DecodeOddPiecesAtEveryPosition)
{
    onEveryProcessor([] {
        const QByteArray clean = encoded(text(200, 3, 5));
        for (int position = 0; position <= 200; ++position) {
            for (const char* piece :
                 {"=",   "==",  "=\n", "=\r", "=\r\n",   "=\r\n=", "=4",          "=4G",
                  "=g4", "=41", "=e9", "=aF", "=\n=\n",  "==41",   "=/0",         "=:0",
                  "=@0", "=`0", "=0:", "=0/", "=\n\r\n", " = ",    "=41=42=43=44"})
                expectSameDecoding(ExactBuffer(QByteArray(clean).insert(position, piece)));
            for (const QByteArray& piece :
                 {QByteArray("\0", 1), QByteArray("=\0", 2), QByteArray("=4\0", 3)})
                expectSameDecoding(ExactBuffer(QByteArray(clean).insert(position, piece)));
        }
    });
}

// What lies across a vector's end is an escape of which each vector sees a part, and so where the
// text ends in a vector that is not whole. NEON takes one vector, and then four at a time.
TEST(QpTwins, DecodeEveryShortStringAroundAVectorsEnd)
{
    onEveryProcessor([] {
        for (const int vectorEnd : {16, 32, 64, 80}) {
            for (int start = vectorEnd - 4; start <= vectorEnd; ++start) {
                forAllStrings(QByteArray("=\r\n4eG\0", 7), 4, [&](const QByteArray& piece) {
                    const QByteArray text = QByteArray(start, 'x') + piece;
                    expectSameDecoding(ExactBuffer(text));
                    expectSameDecoding(ExactBuffer(text + QByteArray(100, 'y')));
                });
            }
        }
    });
}

TEST(QpTwins, DecodeEveryPairOfDigits)
{
    onEveryProcessor([] {
        const QByteArray padding(130, 'x');
        for (int pair = 0; pair < 65536; ++pair) {
            const char escape[] = {'=', static_cast<char>(pair >> 8), static_cast<char>(pair)};
            expectSameDecoding(ExactBuffer("ab" + QByteArray(escape, 3) + padding));
        }
    });
}

TEST(QpTwins, DecodeRandomPieces)
{
    onEveryProcessor([] {
        for (unsigned seed = 0; seed < 60; ++seed) {
            std::mt19937 random(seed);
            QByteArray pieces;
            while (pieces.size() < 5000) {
                if (random() % (seed + 1) == 0)
                    pieces += static_cast<char>("=\r\n4eG "[random() % 7]);
                else
                    pieces += seed % 2 == 0 ? "=D0" : "word ";
            }
            SCOPED_TRACE(seed);
            expectSameDecoding(ExactBuffer(pieces));
        }
    });
}

TEST(QpTwins, FilesGetTheSameBlocksAndCalls)
{
    onEveryProcessor([] {
        for (const int length : {10922, 10923, 32600, 32767, 32768, 32769, 150000}) {
            for (const unsigned density : kDensities) {
                SCOPED_TRACE(testing::Message() << length << ' ' << density);
                const QByteArray data = text(length, density, unsigned(length));
                const auto size = static_cast<unsigned long>(length);
                for (const bool breakLines : {false, true}) {
                    RecordingFile fast;
                    RecordingFile plain;
                    EXPECT_EQ(tarvomime::encodeQp(data.constData(), size, &fast, breakLines), 0);
                    EXPECT_EQ(tarvomime_plain::encodeQp(data.constData(), size, &plain, breakLines),
                              0);
                    ASSERT_EQ(fast.writes(), plain.writes()) << breakLines;
                    ASSERT_TRUE(fast.written() == plain.written()) << breakLines;
                }
                const QByteArray encodedData = encoded(data);
                const auto encodedSize = static_cast<int>(encodedData.size());
                RecordingFile fast;
                RecordingFile plain;
                EXPECT_EQ(tarvomime::decodeQp(encodedData.constData(), encodedSize, &fast,
                                              fast.notingCallback()),
                          0);
                EXPECT_EQ(tarvomime_plain::decodeQp(encodedData.constData(), encodedSize, &plain,
                                                    plain.notingCallback()),
                          0);
                ASSERT_EQ(fast.writes(), plain.writes());
                ASSERT_EQ(fast.calls(), plain.calls());
                ASSERT_TRUE(fast.written() == plain.written());
            }
        }
    });
}

} // namespace

} // namespace quoted_printable_simd_test
