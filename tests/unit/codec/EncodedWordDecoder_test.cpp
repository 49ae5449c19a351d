// SPDX-License-Identifier: MIT
#include "tests/support/AllStrings.h"
#include "utility/EMAIL_Util.h"

#include <random>

namespace encoded_word_decoder_test {

namespace {

QString latin1(const QByteArray& bytes)
{
    return QLatin1String(bytes.constData(), static_cast<int>(bytes.size()));
}

// The rules for one word, taken one after the other, for comparison.
QString plainWord(QByteArray word, QString out, int charset)
{
    if (word.isEmpty())
        return out;
    const int p = static_cast<int>(word.indexOf("=?"));
    if (p < 0) {
        EMAIL_Util::decFromCharset(word, out, charset == 0 ? 14 : charset);
        return out;
    }
    const int q = static_cast<int>(word.indexOf('?', p + 2));
    if (q < 0)
        return latin1(word);
    const QCString name = QCString::fromBytes(word.mid(p + 2, q).trimmed());
    const int wordCharset = EMAIL_Util::charsetStrToEnum(name);
    const int end = q + 3 < word.size() ? static_cast<int>(word.indexOf("?=", q + 3)) : -1;
    if (wordCharset == 0 || end < 0)
        return latin1(word);
    QByteArray payload = word.mid(q + 3, end - (q + 3));
    unsigned long length = 0;
    QByteArray bytes;
    const char letter = word.at(q + 1);
    if (letter == 'B' || letter == 'b')
        bytes = EMAIL_Util::decB64(payload.constData(), &length);
    if (letter == 'Q' || letter == 'q')
        bytes = EMAIL_Util::decQp(payload.replace("_", "=20").constData(), &length);
    EMAIL_Util::decFromCharset(bytes, out, wordCharset);
    return out;
}

// The same for a whole body, byte by byte.
QString plainBody(const QByteArray& body, QString out, int charset)
{
    if (!body.contains("=?")) {
        EMAIL_Util::decFromCharset(body, out, charset == 0 ? 14 : charset);
        return out;
    }
    for (int i = 0; i < body.size(); ++i) {
        if (body.at(i) == '\r' || body.at(i) == '\n')
            continue;
        if (body.mid(i, 2) != "=?") {
            out += QChar(static_cast<uchar>(body.at(i)));
            continue;
        }
        int marks = 0;
        int at = i + 2;
        for (; at < body.size(); ++at) {
            if (body.at(at) == '?' && ++marks == 3)
                break;
        }
        const int end = marks == 3 ? static_cast<int>(body.indexOf("?=", at)) : -1;
        if (end < 0)
            return out + latin1(body.mid(i));
        out += plainWord(body.mid(i, end + 2 - i), QString(), charset);
        i = end + 1;
        while (i + 1 < body.size() && strchr("\r\n \t", body.at(i + 1)) != nullptr &&
               body.at(i + 1) != '\0')
            ++i;
    }
    return out;
}

QString decodedBody(const QByteArray& body, int charset, QString out = QString())
{
    EMAIL_Util::decode_2047_String(QCString::fromBytes(body), out, charset);
    return out;
}

struct Row
{
    const char* shows;
    const char* in;
    int charset;
    const char* utf8;
};

const Row bodyRows[] = {
    {"blanks between words go", "=?utf-8?B?w6k=?= =?utf-8?Q?_x?=", 2, "\xC3\xA9 x"},
    {"folding between words goes", "=?utf-8?b?w6k=?=\r\n\t =?utf-8?q?x?=", 2, "\xC3\xA9x"},
    {"blank before plain text goes", "=?utf-8?Q?a?= b", 2, "ab"},
    {"blank before a word stays", "b =?utf-8?Q?a?=", 2, "b a"},
    {"unknown charset stays", "=?foo?Q?a?=", 2, "=?foo?Q?a?="},
    {"blank behind an unknown charset goes", "=?foo?Q?a?= b", 2, "=?foo?Q?a?=b"},
    {"raw bytes of unknown charset are GB2312", "\xC4\xE3\xBA\xC3", 0, "\xE4\xBD\xA0\xE5\xA5\xBD"},
    {"raw bytes of a given charset", "\xEF\xF0\xE8", 11, "\xD0\xBF\xD1\x80\xD0\xB8"},
    {"raw bytes of a number that is no charset are Latin-1", "\xE9", 99, "\xC3\xA9"},
    {"raw UTF-7", "+AOk-", 12, "\xC3\xA9"},
    {"raw UTF-8", "\xC3\xA9", 13, "\xC3\xA9"},
    {"line ends stay without a word", "a\r\n b", 2, "a\r\n b"},
    {"line ends go beside a word", "a\r\n b=?utf-8?Q?c?=", 2, "a bc"},
    {"half a line end goes too", "a\rb\nc=?utf-8?Q?d?=\r e", 2, "abcde"},
    {"no other white space goes", "=?utf-8?Q?a?=\v\f b", 2, "a\v\f b"},
    {"plain text beside a word is Latin-1", "\xE9=?utf-8?Q?a?=\xE9", 13, "\xC3\xA9\x61\xC3\xA9"},
    {"two words side by side", "=?utf-8?Q?a?==?utf-8?Q?b?=", 2, "ab"},
    {"word inside a word's surroundings", "(=?utf-8?Q?a?=)", 2, "(a)"},
    {"equals sign first in the payload", "=?utf-8?Q?=41?=", 2, "A"},
    {"question mark in the payload", "=?utf-8?Q?a?b?=", 2, "a?b"},
    {"empty payload gives nothing", "x=?utf-8?Q?\?=y", 2, "xy"},
    {"unknown form gives nothing", "x=?utf-8?X?abc?=y", 2, "xy"},
    {"name in upper case", "=?UTF-8?Q?a?=", 2, "a"},
    {"name with a language", "=?utf-8*de?Q?a?=", 2, "a"},
    {"name in blanks", "=? utf-8 ?Q?a?=", 2, "a"},
    {"koi8-r is read as koi8-u", "=?koi8-r?B?8NLJ18XU?=", 2,
     "\xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82"},
    {"us-ascii is read as Latin-1", "=?us-ascii?Q?=E9?=", 13, "\xC3\xA9"},
    {"gb2312 word", "=?gb2312?B?xOO6ww==?=", 2, "\xE4\xBD\xA0\xE5\xA5\xBD"},
    {"big5 word", "=?big5?B?p0Gmbg==?=", 2, "\xE4\xBD\xA0\xE5\xA5\xBD"},
    {"utf-7 word", "=?utf-7?Q?+AOk-?=", 2, "\xC3\xA9"},
    {"space in the payload", "=?utf-8?Q?a b?=", 2, "a b"},
    {"folded payload", "=?utf-8?B?w6k=\r\n w6k=?=", 2, "\xC3\xA9\xC3\xA9"},
    {"no mark after the name", "a\r\n=?utf-8", 2, "a=?utf-8"},
    {"one mark", "a =?utf-8?Q", 2, "a =?utf-8?Q"},
    {"two marks, line ends stay", "=?utf-8?Q?a\r\n b", 2, "=?utf-8?Q?a\r\n b"},
    {"three marks but no end", "=?utf-8?Q?a? \r\n=", 2, "=?utf-8?Q?a? \r\n="},
    {"end before the third mark is none", "=?utf-8?Q?=", 2, "=?utf-8?Q?="},
    {"half word swallows what follows", "=?a =?utf-8?Q?b?=", 2, "=?a =?utf-8?Q?b?="},
    {"half a word behind a word", "=?utf-8?Q?a?= =?x\n", 2, "a=?x\n"},
    {"underscore behind an equals sign is part of its escape", "=?utf-8?Q?=_x?=", 2, "b0x"},
    {"lone start", "=?", 2, "=?"},
    {"overlapping starts", "=?=?=?", 2, "=?=?=?"},
    {"marks only", "=?\?\?\?=", 2, "=?\?\?\?="},
    {"known charset, form and payload missing", "=?utf-8?\?\?=", 2, "=?utf-8?\?\?="},
    {"empty", "", 0, ""},
};

const Row wordRows[] = {
    {"base64", "=?utf-8?B?w6k=?=", 2, "\xC3\xA9"},
    {"quoted-printable", "=?iso-8859-1?q?J=F6rg_?=", 2, "J\xC3\xB6rg "},
    {"no word: the given charset", "\xEF\xF0\xE8", 11, "\xD0\xBF\xD1\x80\xD0\xB8"},
    {"no word, no charset: GB2312", "\xC4\xE3", 0, "\xE4\xBD\xA0"},
    {"no word, no such charset: Latin-1", "\xE9", -1, "\xC3\xA9"},
    {"no word: UTF-7", "+AOk-", 12, "\xC3\xA9"},
    {"unknown charset: as it stands", "=?foo?Q?a_b?=", 2, "=?foo?Q?a_b?="},
    {"half a word: name only", "=?utf-8", 2, "=?utf-8"},
    {"half a word: no payload", "=?utf-8?B", 2, "=?utf-8?B"},
    {"half a word: no end", "=?utf-8?B?w6k=", 2, "=?utf-8?B?w6k="},
    {"half a word: cut end", "=?utf-8?B?w6k=?", 2, "=?utf-8?B?w6k=?"},
    {"half a word stays Latin-1", "=?utf-8?B?\xC3\xA9", 13, "=?utf-8?B?\xC3\x83\xC2\xA9"},
    {"text around the word is dropped", "ab =?utf-8?Q?c?= d", 2, "c"},
    {"text before the word widens the name", "123456=?foo?q?utf-8?=", 2, "utf-8"},
    {"first end counts", "=?utf-8?Q?a?=b?=", 2, "a"},
    {"unknown form leaves the output", "=?utf-8?X?a?=", 2, "kept"},
    {"letter of two characters", "=?utf-8?QQa?=", 2, "a"},
    {"empty payload leaves the output", "=?utf-8?B?\?=", 2, "kept"},
    {"incomplete base64 leaves the output", "=?utf-8?B?w6k?=", 2, "kept"},
    {"empty word leaves the output", "", 2, "kept"},
};

} // namespace

TEST(EncodedWordDecoder, Bodies)
{
    for (const Row& row : bodyRows) {
        EXPECT_EQ(decodedBody(row.in, row.charset), QString::fromUtf8(row.utf8)) << row.shows;
        EXPECT_EQ(plainBody(row.in, QString(), row.charset), QString::fromUtf8(row.utf8))
            << row.shows;
    }
}

TEST(EncodedWordDecoder, Words)
{
    for (const Row& row : wordRows) {
        QString out("kept");
        EMAIL_Util::decode_2047_String_Aux(row.in, out, row.charset);
        EXPECT_EQ(out, QString::fromUtf8(row.utf8)) << row.shows;
        EXPECT_EQ(plainWord(row.in, "kept", row.charset), out) << row.shows;
    }
}

TEST(EncodedWordDecoder, WordsAppendAndTextReplaces)
{
    EXPECT_EQ(decodedBody("=?utf-8?Q?b?=", 2, "a"), "ab");
    EXPECT_EQ(decodedBody("c=?utf-8", 2, "a"), "ac=?utf-8");
    EXPECT_EQ(decodedBody("b", 2, "a"), "b");
    EXPECT_EQ(decodedBody("", 2, "a"), "a");
    // Each word starts from nothing: one without bytes does not repeat the text before it.
    EXPECT_EQ(decodedBody("=?utf-8?Q?a?= =?utf-8?X?b?= =?utf-8?Q?\?=", 2), "a");
}

TEST(EncodedWordDecoder, NulEndsAPayloadButNotABody)
{
    EXPECT_EQ(decodedBody(QByteArray("=?utf-8?Q?a\0b?=c", 16), 2), "ac");
    EXPECT_EQ(decodedBody(QByteArray("\0=?utf-8?Q?a?=\0", 15), 2),
              QString(QChar(0)) + "a" + QChar(0));
}

TEST(EncodedWordDecoder, ShortBodiesFollowThePlainRules)
{
    int count = 0;
    int kept = 0;
    forAllStrings("=?qb\n_A ", 6, [&](const QByteArray& body) {
        ++count;
        const QString text = decodedBody(body, 13);
        kept += text == latin1(body);
        EXPECT_EQ(text, plainBody(body, QString(), 13)) << body.toHex().constData();
    });
    EXPECT_EQ(count, 299593);
    EXPECT_EQ(kept, 294760);
}

TEST(EncodedWordDecoder, ShortWordsFollowThePlainRules)
{
    int kept = 0;
    int empty = 0;
    forAllStrings("=?qb_A ", 6, [&](const QByteArray& tail) {
        const QByteArray body = "=?utf-8?" + tail;
        const QString text = decodedBody(body, 13);
        kept += text == latin1(body);
        empty += text.isEmpty();
        EXPECT_EQ(text, plainBody(body, QString(), 13)) << body.constData();
    });
    EXPECT_EQ(kept, 134366);
    EXPECT_EQ(empty, 1244);
}

TEST(EncodedWordDecoder, ShortPayloadsFollowThePlainRules)
{
    int literal = 0;
    forAllStrings("=?\n_A0 ", 6, [&](const QByteArray& payload) {
        const QByteArray body = "=?iso-8859-1?q?" + payload + "?=";
        const QString text = decodedBody(body, 13);
        literal += text == latin1(payload).replace('_', ' ');
        EXPECT_EQ(text, plainBody(body, QString(), 13)) << payload.toHex().constData();
    });
    EXPECT_EQ(literal, 57586);
}

TEST(EncodedWordDecoder, EveryTwoBytesFollowThePlainRules)
{
    for (int pair = 0; pair < 0x10000 && !HasFailure(); ++pair) {
        const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
        const QByteArray two(bytes, 2);
        for (const char* before : {"", "=?utf-8?Q?a?=", "=?iso-8859-1?", "=?iso-8859-1?q?",
                                   "=?iso-8859-1?q?=4", "=?iso-8859-1?b?YW"}) {
            const QByteArray body = before + two + "?=";
            EXPECT_EQ(decodedBody(body, 2), plainBody(body, QString(), 2))
                << body.toHex().constData();
        }
    }
}

TEST(EncodedWordDecoder, RandomBodiesFollowThePlainRules)
{
    const char* const pieces[] = {"=?",     "?=",  "?",   "=",    "_",    "utf-8",
                                  "koi8-r", "?B?", "?q?", "w6k=", "=41",  " ",
                                  "\r\n",   "\t",  "a",   "\xE9", "\xC3", "gb2312"};
    const unsigned seed = 20470815;
    std::mt19937 random(seed);
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        QByteArray body;
        for (unsigned left = random() % 24; left > 0; --left)
            body += pieces[random() % std::size(pieces)];
        const int charset = static_cast<int>(random() % 24);
        EXPECT_EQ(decodedBody(body, charset), plainBody(body, QString(), charset))
            << body.toHex().constData() << " seed " << seed;
    }
}

TEST(EncodedWordDecoder, EightyThousandUnterminatedWordsStay)
{
    for (const char* start : {"=?", "=?utf-8", "=?utf-8?Q?a ", "=?utf-8?Q?a?b "}) {
        const QByteArray body = QByteArray(start).repeated(80000);
        EXPECT_EQ(decodedBody(body + "x", 13).right(100), latin1(body + "x").right(100)) << start;
    }
}

TEST(EncodedWordDecoder, FourHundredThousandWords)
{
    const int count = 400000;
    const QByteArray body = QByteArray("=?utf-8?Q?a?=\r\n ").repeated(count);
    EXPECT_EQ(decodedBody(body, 13), QString(count, 'a'));
}

} // namespace encoded_word_decoder_test
