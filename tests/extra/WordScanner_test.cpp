// SPDX-License-Identifier: MIT
#include "extra/WordScanner.h"

#include "tests/support/RowNames.h"

namespace word_scanner_test {

using namespace tarvomime;

namespace {

std::string summary(std::string_view text)
{
    std::string items;
    WordScanner scanner(text);
    while (!scanner.atEnd()) {
        items += scanner.takePlain();
        if (scanner.atEnd())
            break;
        const EncodedWord word = scanner.takeWord();
        items += '{' + std::string(word.charset) + (word.isBase64 ? "|B|" : "|Q|") +
                 std::string(word.payload) + '}';
    }
    return items;
}

struct WordsRow
{
    const char* name;
    const char* text;
    const char* expected;
};

void PrintTo(const WordsRow& row, std::ostream* out)
{
    *out << row.text;
}

class ScannedWords : public testing::TestWithParam<WordsRow>
{
};

} // namespace

TEST_P(ScannedWords, AreCut)
{
    EXPECT_EQ(summary(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, ScannedWords,
    testing::Values(WordsRow{"Plain", "a = b ? c", "a = b ? c"},
                    WordsRow{"Word", "=?utf-8?q?a_b?=", "{utf-8|Q|a_b}"},
                    WordsRow{"WordsBetween", "x =?a?B?YQ?= y=?b?Q?x?=z", "x {a|B|YQ} y{b|Q|x}z"},
                    WordsRow{"Language", "=?utf-8*de?Q?a?=", "{utf-8|Q|a}"},
                    WordsRow{"QuestionMarks", "=?a?Q?b?c?=", "{a|Q|b?c}"},
                    WordsRow{"OtherForm", "=?a?X?b?=", "=?a?X?b?="},
                    WordsRow{"NoCharset", "=??Q?b?=", "=??Q?b?="},
                    WordsRow{"BlankInCharset", "=?a b?Q?c?=", "=?a b?Q?c?="},
                    WordsRow{"Open", "=?a?Q?b", "=?a?Q?b"},
                    WordsRow{"OpenBeforeAnother", "=?a?Q?b=?c?Q?d?=", "=?a?Q?b{c|Q|d}"},
                    WordsRow{"CutPayloadMark", "=?a?Q?b?", "=?a?Q?b?"}),
    rowName<WordsRow>);

TEST(WordScanner, KnowsAWordsWholeText)
{
    const auto word = WordScanner::wordAt("=?a*b?Q?c?=d");
    ASSERT_TRUE(word);
    EXPECT_EQ(word->text, "=?a*b?Q?c?=");
    EXPECT_FALSE(WordScanner::wordAt(" =?a?Q?c?="));
}

} // namespace word_scanner_test
