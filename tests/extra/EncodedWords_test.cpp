// SPDX-License-Identifier: MIT
#include "extra/EncodedWords.h"

#include <gtest/gtest.h>

namespace encoded_words_test {

using tarvomime::decodedWords;

namespace {

struct WordsRow
{
    const char* name;
    const char* value;
    const char* expected;
};

class EncodedWords : public testing::TestWithParam<WordsRow>
{
};

} // namespace

TEST_P(EncodedWords, AreRead)
{
    EXPECT_EQ(decodedWords(GetParam().value).toUtf8(), GetParam().expected) << GetParam().value;
}

INSTANTIATE_TEST_SUITE_P(
    Extra, EncodedWords,
    testing::Values(
        WordsRow{"Empty", "", ""}, WordsRow{"Plain", "a  b", "a  b"},
        WordsRow{"Base64", "=?utf-8?B?w6k=?=", "é"}, WordsRow{"Q", "=?utf-8?q?_=C3=A9?=", " é"},
        WordsRow{"EmptyPayload",
                 "a =?utf-8?Q?"
                 "?= b",
                 "a  b"},
        WordsRow{"BlankBefore", "a =?utf-8?Q?b?=", "a b"},
        WordsRow{"BlankBehind", "=?utf-8?Q?a?= b", "a b"},
        WordsRow{"BlankBetweenWords", "=?utf-8?Q?a?= \t =?utf-8?Q?b?=", "ab"},
        WordsRow{"BlankBetweenCharsets", "=?utf-8?Q?a?= =?iso-8859-1?Q?=E9?=", "aé"},
        WordsRow{"BlankAtTheEnd", "=?utf-8?Q?a?= ", "a "},
        WordsRow{"FoldBetweenWords", "=?utf-8?Q?a?=\r\n =?utf-8?Q?b?=", "ab"},
        WordsRow{"FoldInPlain", "a\r\n b\n\tc", "a b\tc"},
        WordsRow{"CharacterCutByFold", "=?utf-8?Q?=E6=97?=\r\n\t=?UTF-8?B?pQ==?=", "日"},
        WordsRow{"NoBlankBetween", "=?utf-8?Q?a?==?utf-8?Q?b?=", "ab"},
        WordsRow{"InsideText", "x=?utf-8?Q?a?=y", "xay"},
        WordsRow{"InsideQuotes", "\"=?utf-8?Q?a?=\"", "\"a\""},
        WordsRow{"BlankInside", "=?utf-8?Q?two words?=", "two words"},
        WordsRow{"QuestionMarkInside",
                 "=?utf-8?Q?What?"
                 "?=",
                 "What?"},
        WordsRow{"Language", "=?utf-8*de?Q?a?=", "a"},
        WordsRow{"PaddingMissing", "=?utf-8?B?w6k?=", "é"},
        WordsRow{"BrokenQ", "=?utf-8?Q?=C3=A9=4?=", "é=4"},
        WordsRow{"LabelLies", "=?utf-8?Q?Fr=F6sche?=", "Frösche"},
        WordsRow{"LabelUnknown", "=?x-user?Q?Fr=C3=B6sche?=", "Frösche"},
        WordsRow{"WindowsLetters", "=?windows-1252?Q?=93a=94?=", "“a”"},
        WordsRow{"Iso2022Jp", "=?iso-2022-jp?B?GyRCRnxLXBsoQg==?=", "日本"},
        WordsRow{"Iso2022JpFolded",
                 "=?iso-2022-jp?B?GyRCRnxLXBsoQg==?=\r\n =?iso-2022-jp?B?GyRCRnxLXBsoQg==?=",
                 "日本日本"},
        WordsRow{"RawUtf8Beside", "é =?utf-8?Q?=C3=A9?=", "é é"},
        WordsRow{"RawLatin1", "\xE9t\xE9", "été"},
        WordsRow{"Twice", "=?utf-8?B?PT91dGYtOD9RPz1DMz1BOT89?=", "é"},
        WordsRow{"TwiceInText", "a =?utf-8?B?PT91dGYtOD9RPz1DMz1BOT89?=", "a =?utf-8?Q?=C3=A9?="},
        WordsRow{"ThreeTimes", "=?utf-8?B?PT91dGYtOD9CP1BUOTFkR1l0T0Q5UlB6MURNejFCT1Q4OT89?=",
                 "=?utf-8?Q?=C3=A9?="},
        WordsRow{"WithoutEnd", "=?utf-8?Q?a b", "=?utf-8?Q?a b"},
        WordsRow{"CutBeforeAnother", "=?utf-8?Q?a =?utf-8?Q?b?=", "=?utf-8?Q?a b"},
        WordsRow{"OtherLetter", "=?utf-8?X?a?=", "=?utf-8?X?a?="},
        WordsRow{"NoCharset", "=??Q?a?=", "=??Q?a?="}, WordsRow{"Marks", "=?=?=?", "=?=?=?"},
        WordsRow{"TwoPieces", "=?a?=", "=?a?="}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(EncodedWordsFallback, IsForBytesOutsideWords)
{
    EXPECT_EQ(decodedWords("\xB1 =?x?Q?=B1?=", "iso-8859-2"), QString::fromUtf8("ą ą"));
}

TEST(EncodedWordsFlood, IsLinear)
{
    for (const char* shape : {"=?", "=?a?q?", "=?a?q?b?= ", "=?a?b?b?=", "?=", "=?a?q?=?"}) {
        const QByteArray value = QByteArray(shape).repeated(500000);
        EXPECT_LE(decodedWords(value).size(), value.size()) << shape;
    }
}

} // namespace encoded_words_test
