// SPDX-License-Identifier: MIT
#include "utility/codec/SingleByteCharset.h"

#include "utility/EMAIL_Util.h"
#include "utility/codec/Charset.h"
#include "utility/codec/CharsetNames.h"

#include <QTextCodec>
#include <random>

namespace single_byte_charset_test {

using namespace tarvomime;

namespace {

QString decodedPlainly(const QByteArray& bytes, int charset)
{
    QString text;
    decodeThroughCodec({bytes.constData(), static_cast<std::size_t>(bytes.size())}, text, charset,
                       codecOf(charset));
    return text;
}

// The bytes, and whether they come back.
std::pair<QByteArray, bool> heldPlainly(const QString& text, int charset)
{
    QByteArray bytes;
    const bool held = encodeIfHeldThroughCodec(bytes, text, charset, codecOf(charset));
    return {held ? bytes : QByteArray(), held};
}

std::pair<QByteArray, bool> heldByTable(const QString& text, int charset)
{
    QByteArray bytes;
    const bool held = encodeIfHeld(bytes, text, charset);
    EXPECT_EQ(canEncodeByCharset(text, charset), held) << charset;
    return {held ? bytes : QByteArray(), held};
}

QString decodedByTable(const QByteArray& bytes, int charset)
{
    QString text;
    decodeFromCharset(bytes, text, charset);
    return text;
}

// Charsets with a table of their own, of one byte or of two: the others share one of these codecs.
const int charsets[] = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 15, 16, 18, 19, 20, 21, 22, 23};

} // namespace

TEST(SingleByteCharset, OnlyUtf8GbkAndBig5HaveNoTable)
{
    for (int charset = -1; charset <= 24; ++charset)
        EXPECT_EQ(SingleByteCharset::of(charset) == nullptr, charset >= 13 && charset <= 16)
            << charset;
}

TEST(SingleByteCharset, ACodecOfSeveralBytesGivesNoTable)
{
    EXPECT_EQ(SingleByteCharset::readOff(*QTextCodec::codecForName("GBK")), nullptr);
    EXPECT_EQ(SingleByteCharset::readOff(*QTextCodec::codecForName("UTF-16")), nullptr);
}

TEST(SingleByteCharset, EveryTwoBytesDecodeAsTheCodecDoes)
{
    for (const int charset : charsets) {
        QByteArray bytes;
        for (int pair = 0; pair < 0x10000; ++pair) {
            bytes += static_cast<char>(pair >> 8);
            bytes += static_cast<char>(pair);
        }
        EXPECT_EQ(decodedByTable(bytes, charset), decodedPlainly(bytes, charset)) << charset;
        // Alone too: a decoder that remembers what it has seen would tell.
        for (int pair = 0; pair < 0x10000 && !HasFailure(); pair += 251) {
            const QByteArray two = bytes.mid(2 * pair, 2);
            EXPECT_EQ(decodedByTable(two, charset), decodedPlainly(two, charset)) << charset;
        }
    }
}

TEST(SingleByteCharset, EveryUnitEncodesAsTheCodecDoes)
{
    for (const int charset : charsets) {
        const QTextCodec* codec = codecOf(charset);
        for (int unit = 0; unit <= 0xFFFF && !HasFailure(); ++unit) {
            const QString text = QString(QChar(unit)) + 'a';
            EXPECT_EQ(bytesInCharset(text, charset), bytesThroughCodec(text, codec))
                << charset << " " << unit;
            EXPECT_EQ(heldByTable(text, charset), heldPlainly(text, charset))
                << charset << " " << unit;
        }
    }
}

TEST(SingleByteCharset, RandomTextsEncodeAsTheCodecDoes)
{
    const unsigned seed = 88591;
    std::mt19937 random(seed);
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        const int charset = charsets[random() % std::size(charsets)];
        QByteArray bytes;
        for (unsigned left = random() % 40; left > 0; --left)
            bytes += static_cast<char>(random());
        QString text = decodedPlainly(bytes, charset);
        if (round % 4 == 0)
            text += QChar(static_cast<ushort>(random()));
        const QTextCodec* codec = codecOf(charset);
        EXPECT_EQ(decodedByTable(bytes, charset), decodedPlainly(bytes, charset)) << seed;
        EXPECT_EQ(bytesInCharset(text, charset), bytesThroughCodec(text, codec)) << seed;
        EXPECT_EQ(heldByTable(text, charset), heldPlainly(text, charset)) << seed;
    }
}

} // namespace single_byte_charset_test
