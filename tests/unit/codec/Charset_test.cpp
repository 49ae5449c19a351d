// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

#include <QTextCodec>
#include <memory>

namespace charset_test {

namespace {

struct CharsetRow
{
    int value;
    const char* mimeName;
    const char* codecName;
};

const CharsetRow charsetRows[] = {
    {0, "us-ascii", "ISO 8859-1"},
    {1, "us-ascii", "ISO 8859-1"},
    {2, "iso-8859-1", "ISO 8859-1"},
    {3, "iso-8859-2", "ISO 8859-2"},
    {4, "iso-8859-4", "ISO 8859-4"},
    {5, "iso-8859-6", "ISO 8859-6"},
    {6, "iso-8859-7", "ISO 8859-7"},
    {7, "iso-8859-8", "ISO 8859-8"},
    {8, "iso-8859-9", "ISO 8859-9"},
    {9, "iso-8859-13", "ISO 8859-13"},
    {10, "koi8-u", "KOI8-U"},
    {11, "windows-1251", "CP 1251"},
    {12, "utf-7", "ISO 8859-1"},
    {13, "utf-8", "UTF-8"},
    {14, "gb2312", "GBK"},
    {15, "gbk", "GBK"},
    {16, "big5", "Big5"},
    {17, "tis620", "ISO 8859-11"},
    {18, "iso-8859-11", "ISO 8859-11"},
    {19, "windows-874", "CP 874"},
    {20, "iso-8859-5", "ISO 8859-5"},
    {21, "iso-8859-3", "ISO 8859-3"},
    {22, "iso-8859-10", "ISO 8859-10"},
    {23, "iso-8859-15", "ISO 8859-15"},
};

// The names as they are looked for, in this order.
const char* const keys[] = {
    "utf-8",       "utf-7",      "big5",       "gb2312",       "gbk",         "windows-874",
    "iso-8859-11", "tis620",     "iso-8859-2", "iso-8859-3",   "iso-8859-4",  "iso-8859-5",
    "iso-8859-6",  "iso-8859-7", "iso-8859-8", "iso-8859-9",   "iso-8859-10", "iso-8859-13",
    "iso-8859-15", "iso-8859-1", "koi8",       "windows-1251", "us-ascii",
};

struct NameRow
{
    const char* shows;
    QCString name;
    int value;
};

const NameRow nameRows[] = {
    {"upper case", "ISO-8859-15", 23},
    {"shortest of the family", "iso-8859-1", 2},
    {"longer than the shortest", "ISO-8859-10", 22},
    {"another letter's KOI8", "KOI8-R", 10},
    {"bare KOI8", "koi8", 10},
    {"unknown", "windows-1252", 0},
    {"empty", "", 0},
    {"null", QCString(), 0},
    {"blank", " ", 0},
    {"prefix", "x-iso-8859-2", 3},
    {"quotes", "\"utf-8\"", 13},
    {"old alias", "csbig5", 16},
    {"suffix", "big5-hkscs", 16},
    {"ISO with a year", "iso-8859-1:1987", 2},
    {"an unlisted ISO charset holds the shortest name", "iso-8859-16", 2},
    {"and so does the fourteenth", "iso-8859-14", 2},
    {"ISO 8859-20 is ISO 8859-2", "iso-8859-20", 3},
    {"no hyphens", "utf8", 0},
    {"underscores", "iso_8859-1", 0},
    {"ASCII by another name", "ascii", 0},
    {"ASCII", "US-ASCII", 1},
    {"GB 18030", "gb18030", 0},
    {"hyphen in tis620", "tis-620", 0},
    {"CP 1251 by another name", "cp1251", 0},
    {"two names: the order decides, not the place", "us-ascii utf-8", 13},
    {"UTF-8 before UTF-7", "utf-7utf-8", 13},
    {"GB2312 before GBK", "gbk-gb2312", 14},
    {"Thai before ISO 8859-1", "iso-8859-1 windows-874", 19},
    {"ISO 8859-11 before tis620", "tis620 iso-8859-11", 18},
    {"name cut by its word's mark", "utf-8?B", 13},
    {"cut short", "utf-", 0},
};

QString decoded(const QByteArray& bytes, int charset)
{
    QString text("kept");
    EMAIL_Util::decFromCharset(bytes, text, charset);
    return text;
}

QByteArray encoded(const QString& text, int charset)
{
    QCString bytes("kept");
    EMAIL_Util::encWithCharset(bytes, text, charset);
    return bytes;
}

QByteArray all256Bytes()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

// FNV-1a over UTF-16 units, which other languages' charset tables can be put through too.
quint32 hashOf(const QString& text)
{
    quint32 hash = 2166136261U;
    for (const QChar unit : text)
        hash = (hash ^ unit.unicode()) * 16777619U;
    return hash;
}

QString codecDecoded(const char* codecName, const QByteArray& bytes)
{
    const std::unique_ptr<QTextDecoder> decoder(QTextCodec::codecForName(codecName)->makeDecoder());
    return decoder->toUnicode(bytes);
}

} // namespace

TEST(Charset, EveryValueIsWritten)
{
    for (const CharsetRow& row : charsetRows) {
        QCString name;
        EXPECT_EQ(EMAIL_Util::charsetEnumToStr(row.value, name), 1) << row.value;
        EXPECT_EQ(name, row.mimeName) << row.value;
    }
    for (const int value : {-1, 24, 99, 2147483647, -2147483647 - 1}) {
        QCString name("dropped");
        EXPECT_EQ(EMAIL_Util::charsetEnumToStr(value, name), 1) << value;
        EXPECT_EQ(name, "us-ascii") << value;
    }
}

TEST(Charset, EveryNameIsRead)
{
    for (const CharsetRow& row : charsetRows) {
        const int value = row.value == 0 ? 1 : row.value;
        EXPECT_EQ(EMAIL_Util::charsetStrToEnum(row.mimeName), value) << row.mimeName;
        EXPECT_EQ(EMAIL_Util::charsetStrToEnum(QCString(row.mimeName).upper()), value);
        EXPECT_EQ(EMAIL_Util::charsetStrToEnum(QCString("x") + row.mimeName + "y"), value);
    }
}

TEST(Charset, NamesAreRecognisedByWhatTheyContain)
{
    for (const NameRow& row : nameRows)
        EXPECT_EQ(EMAIL_Util::charsetStrToEnum(row.name), row.value) << row.shows;
}

TEST(Charset, OfTwoNamesTheOneLookedForFirstCounts)
{
    for (std::size_t first = 0; first < std::size(keys); ++first) {
        const int value = EMAIL_Util::charsetStrToEnum(keys[first]);
        for (std::size_t second = first + 1; second < std::size(keys); ++second) {
            EXPECT_NE(EMAIL_Util::charsetStrToEnum(keys[second]), value) << keys[second];
            const QCString names = QCString(keys[second]) + " " + keys[first];
            EXPECT_EQ(EMAIL_Util::charsetStrToEnum(names), value) << names.data();
        }
    }
}

TEST(Charset, AllBytesDecodeAsTheNamedCodecDecodesThem)
{
    for (const CharsetRow& row : charsetRows) {
        if (row.value == 12 || row.value == 13)
            continue;
        EXPECT_EQ(decoded(all256Bytes(), row.value), codecDecoded(row.codecName, all256Bytes()))
            << row.value;
        for (int byte = 0; byte < 256; ++byte) {
            const QByteArray one(1, static_cast<char>(byte));
            EXPECT_EQ(decoded(one, row.value), codecDecoded(row.codecName, one))
                << row.value << " " << byte;
        }
    }
}

// Taken from another language's tables of the same charsets.
TEST(Charset, AllBytesDecodeAsTheStandardsSay)
{
    struct Row
    {
        int charset;
        int undefined;
        quint32 hash;
    };
    const Row rows[] = {
        {0, 0, 0x90A458C5},  {1, 0, 0x90A458C5},  {2, 0, 0x90A458C5},  {3, 0, 0x070D570E},
        {4, 0, 0xA6FEEF21},  {5, 45, 0x98E099F9}, {6, 3, 0xA1869E7F},  {7, 36, 0xF4599334},
        {8, 0, 0x87FFE0CA},  {9, 0, 0xD20E6E4C},  {10, 0, 0xED08E93A}, {20, 0, 0x258D6261},
        {21, 7, 0xDAEFE744}, {22, 0, 0xAB9BC02E}, {23, 0, 0x25CB4D27}, {24, 0, 0x90A458C5},
        {-1, 0, 0x90A458C5},
    };
    for (const Row& row : rows) {
        const QString text = decoded(all256Bytes(), row.charset);
        EXPECT_EQ(text.count(QChar(QChar::ReplacementCharacter)), row.undefined) << row.charset;
        EXPECT_EQ(hashOf(text), row.hash) << row.charset;
    }
}

TEST(Charset, DefinedBytesComeBack)
{
    for (const CharsetRow& row : charsetRows) {
        const bool severalBytes = row.value >= 12 && row.value <= 16;
        for (int byte = 0; byte < (severalBytes ? 128 : 256); ++byte) {
            const QByteArray one(1, static_cast<char>(byte));
            const QString text = decoded(one, row.value);
            if (row.value == 12 || text == QString(QChar(QChar::ReplacementCharacter)))
                continue;
            EXPECT_EQ(encoded(text, row.value), one) << row.value << " " << byte;
        }
    }
}

TEST(Charset, EveryTwoBytesOfChineseDecodeAsTheNamedCodecDecodesThem)
{
    for (const CharsetRow& row : charsetRows) {
        if (row.value < 14 || row.value > 16)
            continue;
        for (int pair = 0; pair < 0x10000; pair += row.value == 14 ? 13 : 1) {
            const char two[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
            const QByteArray bytes(two, 2);
            ASSERT_EQ(decoded(bytes, row.value), codecDecoded(row.codecName, bytes))
                << bytes.toHex().constData();
        }
    }
}

TEST(Charset, KnownLettersBothWays)
{
    struct Row
    {
        int charset;
        const char* utf8;
        QByteArray bytes;
    };
    const Row rows[] = {
        {0, "\xC3\xA9", "\xE9"},
        {1, "\xC3\xA9", "\xE9"},
        {24, "\xC3\xA9", "\xE9"},
        {-1, "\xC3\xA9", "\xE9"},
        {2, "\xC3\xA9", "\xE9"},
        {3, "\xC5\x82", "\xB3"},
        {10, "\xD0\x9F\xD1\x97", "\xF0\xA7"},
        {11, "\xD0\x96", "\xC6"},
        {13, "\xE2\x82\xAC \xF0\x9F\x98\x80", "\xE2\x82\xAC \xF0\x9F\x98\x80"},
        {14, "\xE4\xBD\xA0\xE5\xA5\xBD", "\xC4\xE3\xBA\xC3"},
        {15, "\xE4\xBD\xA0\xE5\xA5\xBD", "\xC4\xE3\xBA\xC3"},
        {16, "\xE4\xBD\xA0\xE5\xA5\xBD", "\xA7\x41\xA6\x6E"},
        {17, "\xE0\xB8\x81", "\xA1"},
        {18, "\xE0\xB8\x81", "\xA1"},
        {19, "\xE0\xB8\x81", "\xA1"},
        {20, "\xD0\x96", "\xB6"},
        {23, "\xE2\x82\xAC", "\xA4"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(decoded(row.bytes, row.charset), QString::fromUtf8(row.utf8)) << row.charset;
        EXPECT_EQ(encoded(QString::fromUtf8(row.utf8), row.charset), row.bytes) << row.charset;
    }
}

TEST(Charset, NothingIsEncodedAsUtf7)
{
    EXPECT_EQ(encoded("a", 12), "kept");
    EXPECT_EQ(encoded(QString::fromUtf8("\xC3\xA9"), 12), "kept");
}

TEST(Charset, Utf7IsDecoded)
{
    EXPECT_EQ(decoded("J+APY-rg", 12), QString::fromUtf8("J\xC3\xB6rg"));
    EXPECT_EQ(decoded("+", 12), "");
}

TEST(Charset, NoBytesLeaveTheOutput)
{
    for (int charset = -1; charset <= 24; ++charset) {
        EXPECT_EQ(decoded(QByteArray(), charset), "kept") << charset;
        EXPECT_EQ(decoded("", charset), "kept") << charset;
    }
}

TEST(Charset, NulIsACharacter)
{
    const QString text = QString("a") + QChar(0) + "b";
    const QByteArray bytes("a\0b", 3);
    for (const CharsetRow& row : charsetRows) {
        EXPECT_EQ(decoded(bytes, row.value), text) << row.value;
        if (row.value != 12) {
            EXPECT_EQ(encoded(text, row.value), bytes) << row.value;
        }
        // The test reads the bytes up to their first NUL only.
        EXPECT_EQ(EMAIL_Util::canEncodeByCharset(text, row.value), row.value == 13) << row.value;
    }
}

TEST(Charset, MalformedUtf8)
{
    const std::pair<QByteArray, int> rows[] = {
        // A sequence that is cut or broken gives one replacement for each of its bytes.
        {"\x80", 1},
        {"\xFF", 1},
        {"\xC3", 1},
        {"\xE2\x82", 2},
        {"\xF0\x9F\x98", 3},
        {"\xC0\xAF", 2},
        {"\xED\xA0\x80", 3},
        {"\xF5\x80\x80\x80", 4},
        {"\xF8\x88\x80\x80\x80", 5},
    };
    for (const auto& [bytes, replacements] : rows) {
        const QString broken(replacements, QChar(QChar::ReplacementCharacter));
        EXPECT_EQ(decoded(bytes, 13), broken);
        EXPECT_EQ(decoded("a" + bytes + "b", 13), "a" + broken + "b");
        EXPECT_EQ(decoded(QByteArray(1, '\0') + bytes + QByteArray(1, '\0'), 13),
                  QChar(0) + broken + QChar(0));
    }
    EXPECT_EQ(decoded("\xEF\xBB\xBF"
                      "a",
                      13),
              "a")
        << "a mark of the byte order goes";
}

TEST(Charset, EveryTwoBytesOfUtf8)
{
    const QString broken{QChar(QChar::ReplacementCharacter)};
    for (int pair = 0; pair < 0x10000; ++pair) {
        const int first = pair >> 8;
        const int second = pair & 0xFF;
        QString expected;
        if (first >= 0xC2 && first < 0xE0 && second >= 0x80 && second < 0xC0)
            expected = QChar((first & 0x1F) << 6 | (second & 0x3F));
        else
            expected = (first < 0x80 ? QString(QChar(first)) : broken) +
                       (second < 0x80 ? QString(QChar(second)) : broken);
        const char two[] = {static_cast<char>(first), static_cast<char>(second)};
        ASSERT_EQ(decoded(QByteArray(two, 2), 13), expected) << pair;
    }
}

TEST(Charset, ACharacterCutByTheEndShowsNothing)
{
    EXPECT_EQ(decoded("a\xC4", 15), "a");
    EXPECT_EQ(decoded("a\xA7", 16), "a");
}

TEST(Charset, RoundTripTellsWhatACharsetHolds)
{
    struct Row
    {
        const char* utf8;
        int charset;
        bool can;
    };
    const Row rows[] = {
        {"\xC3\xA9", 1, true},
        {"\xC3\xA9", 11, false},
        {"\xC3\xA9", 13, true},
        {"\xC3\xA9", 0, false},
        {"\xC3\xA9", 12, true},
        {"\xC3\xA9", 2, true},
        {"\xC3\xA9", 99, true},
        {"\xC3\xA9", -1, true},
        {"abc", 0, false},
        {"abc", 12, true},
        {"", 2, true},
        {"", 0, false},
        {"\xD0\x96", 11, true},
        {"\xD0\x96", 2, false},
        {"\xD0\x96", 20, true},
        {"\xE4\xBD\xA0", 14, true},
        {"\xE4\xBD\xA0", 16, true},
        {"\xE4\xBD\xA0", 10, false},
        {"\xF0\x9F\x98\x80", 13, true},
        {"\xF0\x9F\x98\x80", 2, false},
        {"\xF0\x9F\x98\x80", 15, false},
        {"\xEF\xBF\xBD", 5, false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(EMAIL_Util::canEncodeByCharset(QString::fromUtf8(row.utf8), row.charset), row.can)
            << row.charset << " " << row.utf8;
    EXPECT_TRUE(EMAIL_Util::canEncodeByCharset(QString(QChar(0xD83D)), 13)) << "half a pair";
}

} // namespace charset_test
