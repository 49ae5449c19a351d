// SPDX-License-Identifier: MIT
#include "extra/FieldParameter.h"

#include <gtest/gtest.h>

namespace field_parameter_test {

namespace {

struct ParameterRow
{
    const char* name;
    const char* body;
    const char* expected;
};

class FieldParameter : public testing::TestWithParam<ParameterRow>
{
};

} // namespace

TEST_P(FieldParameter, IsRead)
{
    const QString value = tarvomime::fieldParameter(GetParam().body, "filename");
    EXPECT_EQ(value.toUtf8(), GetParam().expected) << GetParam().body;
}

INSTANTIATE_TEST_SUITE_P(
    Extra, FieldParameter,
    testing::Values(
        ParameterRow{"None", "attachment", ""}, ParameterRow{"Empty", "", ""},
        ParameterRow{"Token", "attachment; filename=a.txt", "a.txt"},
        ParameterRow{"Blanks", "attachment ;\r\n\tFileName = a.txt ; x=y", "a.txt"},
        ParameterRow{"Quoted", "attachment; filename=\"a; b.txt\"; size=3", "a; b.txt"},
        ParameterRow{"NotTheFirst", "attachment; size=\"1;filename=x\"; filename=b", "b"},
        ParameterRow{"FirstOfTwo", "attachment; filename=a; filename=b", "a"},
        ParameterRow{"EscapedQuote", "x; filename=\"a\\\"b\"", "a\"b"},
        ParameterRow{"EscapedBackslash", "x; filename=\"a\\\\b\"", "a\\b"},
        ParameterRow{"WindowsPath", "x; filename=\"C:\\mail\\a.txt\"", "C:\\mail\\a.txt"},
        ParameterRow{"OpenQuote", "x; filename=\"a.txt", "a.txt"},
        ParameterRow{"LoneQuote", "x; filename=\"", ""},
        ParameterRow{"BackslashAtTheEnd", "x; filename=\"a\\", "a\\"},
        ParameterRow{"EmptyQuoted", "x; filename=\"\"", ""},
        ParameterRow{"EmptyQuotedBetween", "x; filename=\"\"; y=\"z\"", ""},
        ParameterRow{"NoValue", "x; filename; y=z", ""},
        ParameterRow{"EmptyValue", "x; filename=", ""},
        ParameterRow{"OtherName", "x; afilename=a; filenames=b", ""},
        ParameterRow{"EncodedWord", "x; filename=\"=?utf-8?Q?=C3=A9.txt?=\"", "é.txt"},
        ParameterRow{"Extended", "x; filename*=utf-8'de'%C3%A9.txt; filename=e.txt", "é.txt"},
        ParameterRow{"ExtendedLatin1", "x; filename*=iso-8859-1''%e9", "é"},
        ParameterRow{"ExtendedUnknownCharset", "x; filename*=zz''%C3%A9", "é"},
        ParameterRow{"ExtendedWithoutQuotes", "x; filename*=%41", "A"},
        ParameterRow{"BrokenPercent", "x; filename*=utf-8''%4%zz%", "%4%zz%"},
        ParameterRow{"Sections", "x; filename*1=\"b c\"; filename*0=a; filename*2=.d", "ab c.d"},
        ParameterRow{"EncodedSections",
                     "x; filename*0*=utf-8''%C3; filename*1*=%A9; filename*2=%41", "é%41"},
        ParameterRow{"WholeBeforeSections", "x; filename*0=no; filename*=utf-8''yes", "yes"},
        ParameterRow{"HugeSection", "x; filename*99999999999=a; filename=b", "b"},
        ParameterRow{"LoneStars", "x; filename**=a; filename*0**=b", ""},
        ParameterRow{"SectionMissing", "x; filename*0=a; filename*2=c.txt", "ac.txt"},
        ParameterRow{"FirstSectionMissing", "x; filename*1*=b%20; filename*2=c.txt", "b c.txt"},
        ParameterRow{"TwentySections",
                     "x; filename*10=K; filename*9=J; filename*2=C; filename*1=B; filename*0=A",
                     "ABCJK"},
        ParameterRow{"CharacterCutBySections",
                     "x; filename*0*=utf-8''%E6%97; filename*1*=%A5%E6%9C%AC", "日本"},
        ParameterRow{"CharacterCutAtTheEnd", "x; filename*=utf-8''caf%C3", "cafÃ"},
        ParameterRow{"QuotedExtended", "x; filename*=\"iso-8859-1''Fr%F6sche.txt\"", "Frösche.txt"},
        ParameterRow{"OneQuoteForTwo", "x; filename*=utf-8'na%C3%AFve.txt", "naïve.txt"},
        ParameterRow{"ApostropheInExtended", "x; filename*=it's%20me.txt", "it's me.txt"},
        ParameterRow{"ApostropheBehindLabel", "x; filename*=utf-8''it's%20me.txt", "it's me.txt"},
        ParameterRow{"WindowsCharset", "x; filename*=windows-1252''%80.txt", "€.txt"},
        ParameterRow{"JapaneseCharset", "x; filename*=shift_jis'ja'%93%FA%96%7B", "日本"},
        ParameterRow{"LabelLiesUtf8", "x; filename*=utf-8''Fr%F6sche.txt", "Frösche.txt"},
        ParameterRow{"LabelLiesAscii", "x; filename*=us-ascii''%C3%A9", "é"},
        ParameterRow{"LabelLiesLatin1", "x; filename*=iso-8859-1''%80.txt", "€.txt"},
        ParameterRow{"RawUtf8", "x; filename=\"naïve.txt\"", "naïve.txt"},
        ParameterRow{"RawLatin1", "x; filename=\"na\xEFve.txt\"", "naïve.txt"},
        ParameterRow{"RawInSections", "x; filename*0=\"na\xC3\"; filename*1=\"\xAFve\"", "naïve"},
        ParameterRow{"PercentInPlain", "x; filename=100%25.txt", "100%25.txt"},
        ParameterRow{"PercentInPlainSection", "x; filename*0=100%25; filename*1=.txt",
                     "100%25.txt"},
        ParameterRow{"ExtendedFormInPlain", "x; filename=utf-8''a%20b", "utf-8''a%20b"},
        ParameterRow{"WordsInSections",
                     "x; filename*0=\"=?utf-8?Q?na=C3?=\"; filename*1=\"=?utf-8?Q?=AFve?=\"",
                     "naïve"},
        ParameterRow{"WordInExtended", "x; filename*=utf-8''%3D%3Futf-8%3FQ%3F%3DC3%3DA9%3F%3D",
                     "é"},
        ParameterRow{"WordWithoutQuotes", "x; filename==?utf-8?B?w6kgYg==?=", "é b"},
        ParameterRow{"WordFolded", "x; filename=\"=?utf-8?Q?na=C3?=\r\n\t=?utf-8?Q?=AFve?=\"",
                     "naïve"},
        ParameterRow{"WordTwice", "x; filename=\"=?utf-8?B?PT91dGYtOD9RPz1DMz1BOT89?=\"", "é"},
        ParameterRow{"ValueFolded", "x; filename=\"long\r\n name.txt\"", "long name.txt"},
        ParameterRow{"BlanksWithoutQuotes", "x; filename=two words.txt; y=z", "two words.txt"},
        ParameterRow{"InnerQuotes", "x; filename=\"a \"b\".txt\"; y=z", "a \"b\".txt"},
        ParameterRow{"CommentBehind", "x; filename=\"a.txt\" (a comment); y=z", "a.txt"},
        ParameterRow{"ClosingQuoteMissing", "x; filename=\"a.txt; size=3", "a.txt"},
        ParameterRow{"OpeningQuoteMissing", "x; filename=a.txt\"; size=3", "a.txt\""},
        ParameterRow{"EmptyExtendedBeforePlain", "x; filename*=utf-8''; filename=a", "a"},
        ParameterRow{"NoEqualsBetween", "x; filename \"a.txt\"; filename=b", "b"}),
    [](const auto& row) { return std::string(row.param.name); });

// A million of each shape that a scanner could run over again and again.
TEST(FieldParameterFlood, IsLinear)
{
    for (const char* shape :
         {"; filename=\"a", "; filename*0=\"", "\\\"; a=\"", "=?a?q?", ";\"\"  \"("}) {
        const QByteArray body = "x; " + QByteArray(shape).repeated(1000000) + "; filename=end";
        EXPECT_NO_FATAL_FAILURE((void)tarvomime::fieldParameter(body, "filename")) << shape;
    }
}

} // namespace field_parameter_test
