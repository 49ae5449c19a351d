// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"
#include "utility/codec/Charset.h"
#include "utility/codec/CharsetNames.h"

#include <QTextCodec>
#include <random>

namespace codec_lookup_test {

using namespace tarvomime;

TEST(CodecLookup, ThePlatformHasEveryCodec)
{
    for (int charset = 0; charset <= CHARSET_ISO_8859_15; ++charset) {
        EXPECT_NE(QTextCodec::codecForName(codecName(charset)), nullptr) << codecName(charset);
        EXPECT_EQ(codecOf(charset), QTextCodec::codecForName(codecName(charset))) << charset;
    }
}

TEST(CodecLookup, ValuesOutsideTheTableUseLatin1)
{
    for (const int charset : {-2147483647 - 1, -1, 24, 99, 2147483647}) {
        EXPECT_STREQ(codecName(charset), "ISO 8859-1") << charset;
        EXPECT_EQ(codecOf(charset), QTextCodec::codecForName("ISO 8859-1")) << charset;
    }
}

// Also the text that has a way round the codec, and halves of surrogate pairs.
TEST(CodecLookup, Utf8IsWrittenAsTheCodecWritesIt)
{
    const unsigned seed = 3629;
    std::mt19937 random(seed);
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        const unsigned range = round % 2 == 0 ? 0xD800 : 0x10000;
        QString text;
        for (unsigned left = random() % 12; left > 0; --left)
            text += QChar(static_cast<ushort>(random() % 3 == 0 ? 'a' : random() % range));
        const char32_t outsideThePlane = 0x10000 + random() % 0x100000;
        text += QString::fromUcs4(&outsideThePlane, 1);
        EXPECT_EQ(bytesInCharset(text, CHARSET_UTF_8),
                  bytesThroughCodec(text, codecOf(CHARSET_UTF_8)))
            << seed << " " << round;
    }
}

TEST(CodecLookup, WithoutACodecTextIsWrittenAsLatin1UpToItsFirstNul)
{
    QCString out;
    encodeThroughCodec(out, QString::fromUtf8("J\xC3\xB6rg"), CHARSET_KOI8_U, nullptr);
    EXPECT_EQ(out, "J\xF6rg");
    EXPECT_EQ(out.size(), 5);
    encodeThroughCodec(out, QString("ab") + QChar(0) + "cd", CHARSET_KOI8_U, nullptr);
    EXPECT_EQ(out, "ab");
    encodeThroughCodec(out, QString(), CHARSET_KOI8_U, nullptr);
    EXPECT_EQ(out, "");
    EXPECT_FALSE(out.isNull());
}

TEST(CodecLookup, WithoutACodecBytesAreReadAsUtf8)
{
    QString out("kept");
    decodeThroughCodec({}, out, CHARSET_KOI8_U, nullptr);
    EXPECT_EQ(out, "kept");
    decodeThroughCodec("J\xC3\xB6rg \xFF!", out, CHARSET_KOI8_U, nullptr);
    EXPECT_EQ(out, QString::fromUtf8("J\xC3\xB6rg \xEF\xBF\xBD!"));
}

TEST(CodecLookup, WithoutACodecNoTextIsHeld)
{
    for (int charset = -1; charset <= 99; ++charset) {
        QByteArray bytes;
        EXPECT_FALSE(encodeIfHeldThroughCodec(bytes, "a", charset, nullptr)) << charset;
    }
}

} // namespace codec_lookup_test
