// SPDX-License-Identifier: MIT
#include "tests/support/AllStrings.h"
#include "utility/EMAIL_Util.h"

namespace utf7_test {

namespace {

QString decoded(const QByteArray& bytes)
{
    QString text("dropped");
    EXPECT_TRUE(
        EMAIL_Util::UTF7ToUCS2(bytes.constData(), static_cast<unsigned>(bytes.size()), text));
    return text;
}

// The rules as a table of bits: a run's digits are laid out and cut into units of 16.
QString decodedPlainly(const QByteArray& bytes)
{
    const QByteArray digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    QString text;
    for (int i = 0; i < bytes.size(); ++i) {
        if (static_cast<uchar>(bytes[i]) >= 0x80) {
            text += QChar(QChar::ReplacementCharacter);
            continue;
        }
        if (bytes[i] != '+') {
            text += QLatin1Char(bytes[i]);
            continue;
        }
        const int runStart = ++i;
        QList<bool> bits;
        for (; i < bytes.size() && digits.contains(bytes[i]) && bytes[i] != '\0'; ++i) {
            for (int bit = 5; bit >= 0; --bit)
                bits += (digits.indexOf(bytes[i]) >> bit & 1) != 0;
        }
        for (int unit = 0; unit + 16 <= bits.size(); unit += 16) {
            ushort value = 0;
            for (int bit = 0; bit < 16; ++bit)
                value = static_cast<ushort>(value << 1 | (bits[unit + bit] ? 1 : 0));
            text += QChar(value);
        }
        if (i == runStart && i < bytes.size() && bytes[i] == '-')
            text += '+';
        else if (i < bytes.size() && bytes[i] != '-')
            --i;
    }
    return text;
}

struct Row
{
    const char* shows;
    QByteArray bytes;
    const char* utf8;
};

const Row rows[] = {
    {"plus and minus are a plus", "Hi +-1", "Hi +1"},
    {"one character", "+AGE-", "a"},
    {"run at the end", "+AGE", "a"},
    {"run of two characters", "+AGEAYg-", "ab"},
    {"run of three characters, eight digits", "+AGEAYgBj", "abc"},
    {"surrogate pair", "+2D3eAA-!", "\xF0\x9F\x98\x80!"},
    {"text before and behind", "J+APY-rg", "J\xC3\xB6rg"},
    {"run ended by a blank keeps it", "+AGE b", "a b"},
    {"minus behind a minus stays", "+AGE--", "a-"},
    {"pending bits are dropped", "+AGEAY-b", "ab"},
    {"plus inside a run is a digit", "+AGE+AGI-", "a\xE3\xB8\x80"},
    {"plus before a blank vanishes", "a+ b", "a b"},
    {"plus at the end vanishes", "a+", "a"},
    {"8-bit byte outside a run", "a\xE9z", "a\xEF\xBF\xBDz"},
    {"8-bit byte ends a run", "+AGEA\xE9+-", "a\xEF\xBF\xBD+"},
    {"8-bit byte behind the plus", "+\xE9-", "\xEF\xBF\xBD-"},
    {"slash outside a run", "/", "/"},
    {"ends of the ASCII range", "~\x7F@[`{", "~\x7F@[`{"},
};

} // namespace

TEST(Utf7, Rows)
{
    for (const Row& row : rows) {
        EXPECT_EQ(decoded(row.bytes), QString::fromUtf8(row.utf8)) << row.shows;
        EXPECT_EQ(decodedPlainly(row.bytes), QString::fromUtf8(row.utf8)) << row.shows;
    }
}

TEST(Utf7, NoBytesLeaveTheOutput)
{
    QString text("kept");
    EXPECT_FALSE(EMAIL_Util::UTF7ToUCS2("abc", 0, text));
    EXPECT_FALSE(EMAIL_Util::UTF7ToUCS2(nullptr, 0, text));
    EXPECT_EQ(text, "kept");
}

TEST(Utf7, OnlyTheGivenBytesAreRead)
{
    QString text;
    EXPECT_TRUE(EMAIL_Util::UTF7ToUCS2("+AGEb", 4, text));
    EXPECT_EQ(text, "a");
    EXPECT_EQ(decoded(QByteArray("a\0+AG\0E", 7)), QString("a") + QChar(0) + QChar(0) + "E");
}

TEST(Utf7, ShortTextsFollowThePlainRules)
{
    int empty = 0;
    int unchanged = 0;
    forAllStrings(QByteArray("+-A/ \xFFz", 7), 6, [&](const QByteArray& bytes) {
        if (bytes.isEmpty())
            return;
        const QString text = decoded(bytes);
        empty += text.isEmpty();
        unchanged += text == QString::fromLatin1(bytes);
        EXPECT_EQ(text, decodedPlainly(bytes)) << bytes.toHex().constData();
    });
    EXPECT_EQ(empty, 221);
    EXPECT_EQ(unchanged, 19530);
}

TEST(Utf7, EveryTwoBytesFollowThePlainRules)
{
    for (int pair = 0; pair < 0x10000; ++pair) {
        const char two[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
        for (const char* before : {"", "+", "+AG"}) {
            const QByteArray bytes = before + QByteArray(two, 2);
            ASSERT_EQ(decoded(bytes), decodedPlainly(bytes)) << bytes.toHex().constData();
        }
    }
}

} // namespace utf7_test
