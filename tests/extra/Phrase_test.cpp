// SPDX-License-Identifier: MIT
#include "extra/Phrase.h"

#include "extra/EncodedWords.h"
#include "tests/support/RowNames.h"

#include <QStringList>

namespace phrase_test {

using namespace tarvomime;

namespace {

struct PhraseRow
{
    const char* name;
    QString phrase;
    const char* expected;
};

void PrintTo(const PhraseRow& row, std::ostream* out)
{
    *out << row.name;
}

class Phrase : public testing::TestWithParam<PhraseRow>
{
};

} // namespace

TEST_P(Phrase, IsWritten)
{
    EXPECT_EQ(encodedPhrase(GetParam().phrase), QString(GetParam().expected));
}

TEST_P(Phrase, IsReadAgain)
{
    EXPECT_EQ(decodedWords(QCString(GetParam().expected)), GetParam().phrase);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, Phrase,
    testing::Values(PhraseRow{"Plain", "John O'Hara-Smith", "John O'Hara-Smith"},
                    PhraseRow{"Comma", "Smith, John", "=?utf-8?Q?Smith=2C_John?="},
                    PhraseRow{"Dot", "John Q.", "=?utf-8?Q?John_Q=2E?="},
                    PhraseRow{"TwoBlanks", "a  b", "=?utf-8?Q?a__b?="},
                    PhraseRow{"BlankAtTheEnd", "a ", "=?utf-8?Q?a_?="},
                    PhraseRow{"LooksEncoded", "=?a", "=?utf-8?B?PT9h?="},
                    PhraseRow{"Umlaut", QString::fromUtf8("Jörg"), "=?utf-8?B?SsO2cmc=?="},
                    PhraseRow{"MostlyEscapes", QString::fromUtf8("日本"), "=?utf-8?B?5pel5pys?="}),
    rowName<PhraseRow>);

// Each line holds one word of at most 75 characters, and each word whole characters.
TEST(LongPhrase, IsFoldedBetweenCharacters)
{
    for (const char* piece : {"word ", "é", "日", "😀", "a😀", ","}) {
        for (int count = 10; count < 120; ++count) {
            const QString name = QString::fromUtf8(piece).repeated(count) + 'x';
            const QString phrase = encodedPhrase(name);
            for (const QString& line : phrase.split("\r\n\t")) {
                EXPECT_LE(line.size(), 75) << line.toStdString();
                EXPECT_FALSE(decodedWords(QCString(line.toLatin1())).contains(QChar(0xFFFD)));
            }
            EXPECT_EQ(decodedWords(QCString(phrase.toLatin1())), name) << piece << count;
        }
    }
}

} // namespace phrase_test
