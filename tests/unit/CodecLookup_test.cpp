// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"
#include "utility/codec/Charset.h"
#include "utility/codec/CharsetNames.h"

#include <QTextCodec>

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

TEST(CodecLookup, WithoutACodecOnlyUtf8CanEncode)
{
    for (int charset = -1; charset <= 99; ++charset)
        EXPECT_EQ(canEncodeThroughCodec("a", charset, nullptr), charset == CHARSET_UTF_8)
            << charset;
}
