// SPDX-License-Identifier: MIT
#include "extra/EnrichedText.h"

#include "tests/support/Printers.h"

#include <gtest/gtest.h>

namespace enriched_text_test {

using namespace tarvomime;

namespace {

struct EnrichedRow
{
    const char* name;
    QString source;
    QString text;
};

void PrintTo(const EnrichedRow& row, std::ostream* out)
{
    *out << row.name;
}

class Enriched : public testing::TestWithParam<EnrichedRow>
{
};

class RichText : public testing::TestWithParam<EnrichedRow>
{
};

} // namespace

TEST_P(Enriched, IsReadable)
{
    EXPECT_EQ(textFromEnriched(GetParam().source), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, Enriched,
    testing::Values(EnrichedRow{"Nothing", "", ""},
                    EnrichedRow{"CommandsGo", "<bold>Now</bold> is <x-y-2>it</X-Y-2>\n",
                                "Now is it"},
                    EnrichedRow{"ParametersGo", "<color><param>red</param>R</color>", "R"},
                    EnrichedRow{"OneLineEndWraps", "a\nb\r\nc", "a b c"},
                    EnrichedRow{"OfSeveralOneGoes", "a\n\nb\n\n\nc", "a\nb\n\nc"},
                    EnrichedRow{"NofillKeepsLines", "<nofill>a\nb\n\nc</nofill>", "a\nb\n\nc"},
                    EnrichedRow{"DoubledBracket", "1 << 2 <<bold>", "1 < 2 <bold>"},
                    EnrichedRow{"Excerpt", "a\n\n<excerpt>b\n\nc</excerpt>d", "a\n> b\n> c\nd"},
                    EnrichedRow{"ExcerptInExcerpt", "<excerpt><excerpt>a</excerpt>b", ">> a\n> b"},
                    EnrichedRow{"NoCommand", "a <b c> <> </> <", "a <b c> <> </> <"},
                    EnrichedRow{"TooLongForACommand", "<" + QString(61, 'b') + ">",
                                "<" + QString(61, 'b') + ">"},
                    EnrichedRow{"EndsThatNothingBegan", "</param>a</excerpt></nofill>\nb", "a\nb"},
                    EnrichedRow{"ParameterWithoutEnd", "a<param>b", "a"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_P(RichText, IsReadable)
{
    EXPECT_EQ(textFromRichText(GetParam().source), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, RichText,
    testing::Values(EnrichedRow{"LineEndsAreBlanks", "a\n\nb", "a b"},
                    EnrichedRow{"NewLine", "a<nl>b<nl><NL>c", "a\nb\n\nc"},
                    EnrichedRow{"LessThan", "a <lt> b << c", "a < b << c"},
                    EnrichedRow{"CommentsGo", "a<comment>b<nl></comment>c", "ac"},
                    EnrichedRow{"Paragraph", "a<paragraph>b</paragraph>c", "a\nb\nc"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(EnrichedFlood, IsReadInLinearTime)
{
    const QString open = QString("<excerpt>").repeated(200000);
    EXPECT_EQ(textFromEnriched(open + 'a'), QString(10, '>') + " a");
    EXPECT_EQ(textFromEnriched(QString("<").repeated(400000)).size(), 200000);
}

} // namespace enriched_text_test
