// SPDX-License-Identifier: MIT
#include "extra/FindingText.h"

#include "tests/support/RowNames.h"

namespace finding_text_test {

namespace {

struct ShownRow
{
    const char* name;
    QString (*shown)(const QString&);
    QString text;
    QString expected;
};

void PrintTo(const ShownRow& row, std::ostream* out)
{
    *out << row.name;
}

class FindingText : public testing::TestWithParam<ShownRow>
{
};

QString letters(int count)
{
    return QString(count, 'n');
}

} // namespace

TEST_P(FindingText, IsShort)
{
    EXPECT_EQ(GetParam().shown(GetParam().text).toStdString(), GetParam().expected.toStdString());
}

// Two units in UTF-16.
const QString kSmile = QString::fromUtf8("\xF0\x9F\x98\x80");

INSTANTIATE_TEST_SUITE_P(
    Extra, FindingText,
    testing::Values(ShownRow{"Name", tarvomime::shownName, letters(200), letters(200)},
                    ShownRow{"LongName", tarvomime::shownName, letters(201), letters(200) + "..."},
                    ShownRow{"NameWholeCharacters", tarvomime::shownName,
                             letters(199) + kSmile + "n", letters(199) + "..."},
                    ShownRow{"NameBehindACharacter", tarvomime::shownName,
                             letters(198) + kSmile + "n", letters(198) + kSmile + "..."},
                    ShownRow{"Label", tarvomime::shownLabel, letters(64), letters(64)},
                    ShownRow{"LongLabel", tarvomime::shownLabel, letters(65), letters(64) + "..."},
                    ShownRow{"Empty", tarvomime::shownLabel, "", ""}),
    rowName<ShownRow>);

} // namespace finding_text_test
