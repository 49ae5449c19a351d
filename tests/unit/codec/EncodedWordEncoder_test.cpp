// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

#include <gmock/gmock.h>
#include <random>

namespace encoded_word_encoder_test {

namespace {

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

QCString words(const QString& text, int charset)
{
    QCString out;
    EMAIL_Util::encode_2047_String(text, charset, out);
    return out;
}

QCString addresses(const QString& text, int charset, const QCString& before = "kept")
{
    QCString out = before;
    EMAIL_Util::encode_2047_Address(text, charset, out);
    return out;
}

QString decoded(const QCString& body)
{
    QString out;
    EMAIL_Util::decode_2047_String(body, out, 0);
    return out;
}

struct LabelRow
{
    int charset;
    const char* text;
    const char* label;
    int converted;
};

// Each text can be written in its charset; those without a label fall back to ISO 8859-1.
const LabelRow labelRows[] = {
    {0, "\xC3\xA9", "utf-8", 13},
    {1, "\xC3\xA9", "iso-8859-1", 2},
    {2, "\xC3\xA9", "iso-8859-1", 2},
    {3, "\xC5\x82", "iso-8859-2", 3},
    {4, "\xC4\x93", "iso-8859-4", 4},
    {5, "\xD8\xB3", "iso-8859-6", 5},
    {6, "\xCE\xB1", "iso-8859-7", 6},
    {7, "\xD7\x90", "iso-8859-8", 7},
    {8, "\xC4\x9F", "iso-8859-9", 8},
    {9, "\xC5\xA1", "iso-8859-13", 9},
    {10, "\xD1\x97", "koi8-u", 10},
    {11, "\xD0\xB6", "windows-1251", 11},
    {12, "\xC3\xA9", "iso-8859-1", 2},
    {13, "\xE4\xBD\xA0", "utf-8", 13},
    {14, "\xE4\xBD\xA0", "gb2312", 14},
    {15, "\xE4\xBD\xA0", "gbk", 15},
    {16, "\xE4\xBD\xA0", "big5", 16},
    {17, "\xE0\xB8\x81", "tis620", 17},
    {18, "\xE0\xB8\x81", "iso-8859-11", 18},
    {19, "\xE0\xB8\x81", "windows-874", 19},
    {20, "\xD0\xB6", "iso-8859-1", 2},
    {21, "\xC4\xA7", "iso-8859-1", 2},
    {22, "\xC4\x93", "iso-8859-1", 2},
    {23, "\xE2\x82\xAC", "iso-8859-1", 2},
    {24, "\xC3\xA9", "iso-8859-1", 2},
    {-1, "\xC3\xA9", "iso-8859-1", 2},
};

// Plain halving, every candidate being encoded in full.
QCString plainWords(const QString& text, const QCString& label, int charset)
{
    QCString out("");
    const int limit = 66 - label.length() - 1;
    for (int position = 0; position < text.length();) {
        int count = static_cast<int>(text.length()) - position;
        QCString payload;
        while (true) {
            EMAIL_Util::encode_2047_String_Aux(text.mid(position, count), charset, 5, payload);
            if (payload.length() <= limit)
                break;
            int half = count / 2;
            if (text.at(position + half - 1).isHighSurrogate() &&
                text.at(position + half).isLowSurrogate())
                half = half - 1 == 0 ? half + 1 : half - 1;
            count = half;
        }
        position += count;
        out += "=?" + label + "?b?" + payload + (position < text.length() ? "?=\r\n\t" : "?=");
    }
    return out;
}

QValueList<QCString> lines(const QCString& body)
{
    return EMAIL_Util::split("\r\n\t", body, false);
}

void appendCharacter(QString& text, char32_t code)
{
    text += QString::fromUcs4(&code, 1);
}

} // namespace

TEST(EncodedWordEncoder, OnlyCharactersAbove0x80NeedAWord)
{
    EXPECT_FALSE(EMAIL_Util::isNeedEncode2047(QString()));
    for (int code = 0; code <= 0xFFFF; ++code) {
        const QString text = QString("ab") + QChar(code) + "c";
        ASSERT_EQ(EMAIL_Util::isNeedEncode2047(text), code > 0x80) << code;
    }
}

TEST(EncodedWordEncoder, TextThatNeedsNoWordReplacesTheOutput)
{
    for (const QString& text :
         {QString("Hello"), QString("a\r\n\tb?="), QString(QChar(0x80)), QString()}) {
        QCString out("kept");
        EMAIL_Util::encode_2047_String(text, 13, out);
        EXPECT_EQ(out, QCString(text.toLatin1())) << text.toStdString();
    }
}

TEST(EncodedWordEncoder, WordsAppend)
{
    QCString out;
    EMAIL_Util::encode_2047_String(utf8("\xC3\xA9"), 2, out);
    EXPECT_EQ(out, "=?iso-8859-1?b?6Q==?=");
    EMAIL_Util::encode_2047_String(utf8("\xC3\xA9"), 13, out);
    EXPECT_EQ(out, "=?iso-8859-1?b?6Q==?==?utf-8?b?w6k=?=");
}

TEST(EncodedWordEncoder, EveryCharsetHasItsLabel)
{
    for (const LabelRow& row : labelRows) {
        const QString text = utf8(row.text);
        QCString bytes;
        EMAIL_Util::encWithCharset(bytes, text, row.converted);
        const QCString payload = QByteArray(bytes).toBase64();
        EXPECT_EQ(words(text, row.charset), QCString("=?") + row.label + "?b?" + payload + "?=")
            << row.charset;
    }
}

TEST(EncodedWordEncoder, TextOutsideTheCharsetBecomesUtf8)
{
    for (int charset = 0; charset <= 24; ++charset) {
        if (charset == 13)
            continue;
        EXPECT_EQ(words(utf8("\xF0\x9F\x98\x80"), charset), "=?utf-8?b?8J+YgA==?=") << charset;
    }
}

TEST(EncodedWordEncoder, PayloadForms)
{
    QCString out("kept");
    EMAIL_Util::encode_2047_String_Aux(QString(), 13, 5, out);
    EXPECT_EQ(out, "kept");
    EMAIL_Util::encode_2047_String_Aux(utf8("\xC3\xA9 a?_"), 13, 5, out);
    EXPECT_EQ(out, "w6kgYT9f");
    for (const int form : {4, 0, 1, 2, 3, 6, -1}) {
        EMAIL_Util::encode_2047_String_Aux(utf8("\xC3\xA9 a?_="), 13, form, out);
        EXPECT_EQ(out, "=C3=A9=20a?_=3D") << form;
    }
    // Longer than any line: neither form breaks it.
    EMAIL_Util::encode_2047_String_Aux(QString(600, 'a'), 2, 5, out);
    EXPECT_EQ(out, QCString(QByteArray("YWFh").repeated(200)));
    EMAIL_Util::encode_2047_String_Aux(QString(600, 'a'), 2, 4, out);
    EXPECT_EQ(out, QCString(QByteArray(600, 'a')));
    // UTF-7 is never written.
    EMAIL_Util::encode_2047_String_Aux("a", 12, 5, out);
    EXPECT_EQ(out, "");
    // U+0000 is a character like any other.
    EMAIL_Util::encode_2047_String_Aux(QString(2, QChar(0)), 13, 5, out);
    EXPECT_EQ(out, "AAA=");
}

TEST(EncodedWordEncoder, LongTextIsHalved)
{
    // 45 bytes fit a word of utf-8: of 50 letters of two bytes a quarter, of the other 38 a half.
    const QCString body = words(QString(50, QChar(0x436)), 13);
    const QValueList<QCString> pieces = lines(body);
    QList<int> lengths;
    for (const QCString& piece : pieces)
        lengths.append(static_cast<int>(decoded(piece).length()));
    EXPECT_THAT(lengths, testing::ElementsAre(12, 19, 19));
    EXPECT_EQ(decoded(body), QString(50, QChar(0x436)));
}

TEST(EncodedWordEncoder, ChunksAreThoseOfPlainHalving)
{
    const unsigned seed = 1522;
    std::mt19937 random(seed);
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        QString text = utf8("\xC3\xA9");
        for (unsigned left = random() % 300; left > 0; --left) {
            static constexpr unsigned ranges[] = {0x80, 0x800, 0xD800, 0x110000};
            const unsigned code = random() % ranges[random() % 4];
            appendCharacter(text, code >= 0xD800 && code < 0xE000 ? 'x' : code);
        }
        EXPECT_EQ(words(text, 13), plainWords(text, "utf-8", 13)) << seed << " " << round;
        EXPECT_EQ(decoded(words(text, 13)), text) << seed << " " << round;
    }
}

TEST(EncodedWordEncoder, ChunksOfEachCharsetAreThoseOfPlainHalving)
{
    for (const LabelRow& row : labelRows) {
        const QString sample = utf8(row.text);
        for (const int length : {1, 40, 44, 45, 46, 47, 100, 1000}) {
            const QString text = sample + QString(length, sample.at(0)) + "abc";
            EXPECT_EQ(words(text, row.charset), plainWords(text, row.label, row.converted))
                << row.charset << " " << length;
        }
    }
}

TEST(EncodedWordEncoder, RandomTextsOfEachCharsetAreCutByPlainHalving)
{
    const unsigned seed = 2047;
    std::mt19937 random(seed);
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        const LabelRow& row = labelRows[random() % std::size(labelRows)];
        QByteArray bytes;
        for (unsigned left = random() % 300; left > 0; --left)
            bytes += static_cast<char>(random() % 3 == 0 ? random() % 256 : 0xB0 + random() % 0x40);
        QString text;
        EMAIL_Util::decFromCharset(bytes, text, row.charset);
        text += utf8(row.text);
        const bool held = EMAIL_Util::canEncodeByCharset(text, row.charset);
        EXPECT_EQ(words(text, row.charset),
                  held ? plainWords(text, row.label, row.converted) : plainWords(text, "utf-8", 13))
            << row.charset << " seed " << seed << " " << round;
        if (!held || row.converted == row.charset) {
            EXPECT_EQ(decoded(words(text, row.charset)), text) << seed << " " << round;
        }
    }
}

TEST(EncodedWordEncoder, CharactersOfUnusualLengthAreCutByPlainHalving)
{
    // Chinese charsets with single bytes above ASCII, as far as the platform's codecs have them.
    for (const LabelRow& row : labelRows) {
        if (row.charset < 14 || row.charset > 16)
            continue;
        for (const int odd : {0x80, 0x20AC, 0xF8F5, 0xF8F8}) {
            const QString text = (utf8("\xE4\xBD\xA0") + QChar(odd)).repeated(50) + "abc";
            const bool held = EMAIL_Util::canEncodeByCharset(text, row.charset);
            EXPECT_EQ(words(text, row.charset), held ? plainWords(text, row.label, row.converted)
                                                     : plainWords(text, "utf-8", 13))
                << row.charset << " " << odd;
        }
    }
    // The two may have four bytes together, or six.
    const QString broken = (utf8("\xE2\x82\xAC") + QChar(0xD800)).repeated(50);
    EXPECT_EQ(words(broken, 13), plainWords(broken, "utf-8", 13));
}

TEST(EncodedWordEncoder, LoneSurrogatesDoNotStopTheCutting)
{
    const unsigned seed = 815;
    std::mt19937 random(seed);
    for (int round = 0; round < 1000 && !HasFailure(); ++round) {
        QString text;
        for (unsigned left = 1 + random() % 150; left > 0; --left)
            text += QChar(static_cast<ushort>(random() % 3 == 0 ? 'a' : 0xD800 + random() % 0x800));
        if (!EMAIL_Util::isNeedEncode2047(text))
            continue;
        EXPECT_EQ(words(text, 13), plainWords(text, "utf-8", 13)) << seed << " " << round;
    }
}

TEST(EncodedWordEncoder, EveryLengthKeepsTheLimitAndComesBack)
{
    for (const LabelRow& row : labelRows) {
        for (int length = 1; length < 200 && !HasFailure(); ++length) {
            const QCString body = words(QString(length, utf8(row.text).at(0)), row.charset);
            for (const QCString& line : lines(body)) {
                EXPECT_LE(line.length(), 72) << row.charset << " " << length;
                EXPECT_EQ(line.left(2), "=?");
                EXPECT_EQ(line.right(2), "?=");
            }
        }
    }
}

TEST(EncodedWordEncoder, FortyEmojiSurvive)
{
    for (int lead = 0; lead < 12; ++lead) {
        QString text(lead, 'a');
        for (int i = 0; i < 40; ++i)
            appendCharacter(text, 0x1F600U + static_cast<char32_t>(i));
        const QCString body = words(text, 13);
        EXPECT_EQ(decoded(body), text) << lead;
        for (const QCString& line : lines(body))
            EXPECT_TRUE(decoded(line).isValidUtf16()) << line.data();
    }
}

TEST(EncodedWordEncoder, AHalfInsideAPairTakesOneUnitLessOrOneMore)
{
    // 12 pairs are 48 bytes, 3 too many; the half of 24 units, 12, cuts no pair.
    QString emoji;
    for (int i = 0; i < 12; ++i)
        appendCharacter(emoji, 0x1F600);
    EXPECT_EQ(decoded(lines(words(emoji, 13))[0]).length(), 12);
    // With a letter before them the half of 25, again 12, falls inside one.
    EXPECT_EQ(decoded(lines(words("a" + emoji, 13))[0]).length(), 11);
}

TEST(EncodedWordEncoder, AHundredAndSixtyThousandLetters)
{
    const int total = 160000;
    const QCString body = words(QString(total, QChar(0x44F)), 13);
    const QValueList<QCString> pieces = lines(body);
    int left = total;
    for (const QCString& piece : pieces) {
        int count = left;
        while (count > 22)
            count /= 2;
        const QByteArray letters = QByteArray("\xD1\x8F").repeated(count);
        ASSERT_EQ(piece, QCString("=?utf-8?b?" + letters.toBase64() + "?="));
        left -= count;
    }
    EXPECT_EQ(left, 0);
}

TEST(EncodedWordEncoder, AddressesEndAtNulOutsideWords)
{
    const QString text = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    EXPECT_EQ(addresses(text, 2), "a");
    EXPECT_EQ(addresses(text, 13), "a");
    EXPECT_EQ(addresses(text + ",c", 2), "a,c") << "the item, not the list";
    EXPECT_EQ(addresses("n <" + text + ">", 2), "n <a");
    EXPECT_EQ(addresses(text + "<c>", 2), "a<c>") << "name and address each";
    EXPECT_EQ(addresses(text + QChar(0xE9) + "<c>", 2), "=?utf-8?b?YQBiw6k=?=<c>")
        << "words hold it";
}

TEST(EncodedWordEncoder, Addresses)
{
    struct Row
    {
        const char* shows;
        const char* text;
        int charset;
        QCString expected;
    };
    const QCString name("=?iso-8859-1?b?SvZyZyA=?=");
    const Row rows[] = {
        {"name and bare address", "J\xC3\xB6rg <jr>,ab", 2, name + "<jr>,ab"},
        {"ASCII name", "Joe <a@b>", 2, "Joe <a@b>"},
        {"blanks stay", " Joe  < a@b > , c ", 2, " Joe  < a@b > , c "},
        {"empty items are dropped", ",,a,,b,", 2, "a,b"},
        {"no item leaves the output", ",,", 2, "kept"},
        {"no text leaves the output", "", 2, "kept"},
        {"address first", "<a@b>", 2, "<a@b>"},
        {"address first is not encoded", "<\xC3\xA9@b>", 2, "<\xE9@b>"},
        {"no address is not encoded", "J\xC3\xB6rg", 2, "J\xF6rg"},
        {"not encoded, in its charset", "J\xC3\xB6rg", 13, "J\xC3\xB6rg"},
        {"outside its charset", "\xD0\xB6", 2, "?"},
        {"UTF-7 goes through its codec", "J\xC3\xB6rg", 12, "J\xF6rg"},
        {"UTF-7 with an address", "J\xC3\xB6rg <jr>", 12, name + "<jr>"},
        {"last bracket counts", "J\xC3\xB6rg <x> <y>", 2, "=?iso-8859-1?b?SvZyZyA8eD4g?=<y>"},
        {"bracket behind the first", "<<\xC3\xA9>", 2, "<<\xE9>"},
        {"quoted comma splits too", "\"b, \xC3\xA9\" <a>", 2, "\"b,=?iso-8859-1?b?IOkiIA==?=<a>"},
        {"later charsets: name as Latin-1", "\xD0\xB6 <a\xD0\xB6>", 20,
         "=?iso-8859-1?b?PyA=?=<a\xD6>"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(addresses(utf8(row.text), row.charset), row.expected) << row.shows;
}

} // namespace encoded_word_encoder_test
