// SPDX-License-Identifier: MIT
#include "extra/ShortText.h"

#include "tests/support/RowNames.h"

namespace short_text_test {

using tarvomime::ShortTextReader;

namespace {

struct TextRow
{
    const char* name;
    QByteArray bytes;
    QByteArray label;
    const char* expected;
};

void PrintTo(const TextRow& row, std::ostream* out)
{
    *out << row.name;
}

class ShortText : public testing::TestWithParam<TextRow>
{
};

} // namespace

TEST_P(ShortText, IsRead)
{
    ShortTextReader reader("iso-8859-2");
    EXPECT_EQ(reader.read(GetParam().bytes, GetParam().label).toUtf8(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Extra, ShortText,
                         testing::Values(TextRow{"Declared", "\xE9", "iso-8859-1", "é"},
                                         TextRow{"Undeclared", "\xC3\xA9", "", "é"},
                                         TextRow{"UndeclaredInTheFallback", "\xB1", "", "ą"},
                                         TextRow{"LabelUnknown", "\xC3\xA9", "x-none", "é"},
                                         TextRow{"LabelUnknownInTheFallback", "\xB1", "x-none",
                                                 "ą"},
                                         TextRow{"LabelLies", "\xB1", "utf-8", "ą"},
                                         TextRow{"LabelLiesAscii", "\xC3\xA9", "us-ascii", "é"}),
                         rowName<TextRow>);

TEST(ShortTextFallback, MayBeUnknown)
{
    EXPECT_EQ(ShortTextReader("x-none").read("\xE9"), QString(QChar(0xE9)));
}

// Behind so many labels none is looked up any more; those known before are still read.
TEST(ShortTextLabels, AreRememberedUpToABound)
{
    ShortTextReader reader("iso-8859-2");
    EXPECT_EQ(reader.read("\xA4", "iso-8859-15"), QString(QChar(0x20AC)));
    for (int i = 0; i < 100; ++i)
        reader.read("a", "x-none-" + QByteArray::number(i));
    EXPECT_EQ(reader.read("\xA4", "iso-8859-15"), QString(QChar(0x20AC)));
    EXPECT_EQ(reader.read("\xB1", "iso-8859-1"), QString(QChar(0x0105)));
}

} // namespace short_text_test
