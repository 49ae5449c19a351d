// SPDX-License-Identifier: MIT
#include "extra/HtmlTagGuard.h"

#include "extra/HtmlParser.h"

#include <gtest/gtest.h>

namespace html_tag_guard_test {

namespace {

struct GuardRow
{
    const char* name;
    QByteArray html;
    QByteArray guarded;
};

void PrintTo(const GuardRow& row, std::ostream* out)
{
    *out << row.name << ", " << row.html.size() << " bytes";
}

class HtmlTagGuard : public testing::TestWithParam<GuardRow>
{
};

QByteArray guarded(const QByteArray& html)
{
    return tarvomime::guardedHtml(html, *tarvomime::htmlParser());
}

// "a0", "a1" and so on, each between the two texts.
QByteArray numbered(int count, const char* before, const char* behind)
{
    QByteArray all;
    for (int i = 0; i < count; ++i)
        all += before + QByteArray("a") + QByteArray::number(i) + behind;
    return all;
}

} // namespace

TEST_P(HtmlTagGuard, WritesWhatMayPass)
{
    const QByteArray written = guarded(GetParam().html);
    EXPECT_TRUE(written == GetParam().guarded) << written.left(200).constData();
}

// What is written passes as it is.
TEST_P(HtmlTagGuard, ChangesNothingTwice)
{
    const QByteArray written = guarded(GetParam().html);
    EXPECT_TRUE(guarded(written) == written) << written.left(200).constData();
}

INSTANTIATE_TEST_SUITE_P(
    Tags, HtmlTagGuard,
    testing::Values(GuardRow{"Nothing", "", ""}, GuardRow{"Text", "a < b <", "a &lt; b &lt;"},
                    GuardRow{"LessBeforeWhatIsNoName", "<1<_<<b>", "&lt;1&lt;_&lt;<b>"},
                    GuardRow{"Tags", "<p class=x>a</p><br/>", "<p>a</p><br/>"},
                    GuardRow{"SmallNames", "<DIV HIDDEN>a</DIV>", "<div hidden>a</div>"},
                    GuardRow{"OpenTag", "<p class", "<p>"},
                    GuardRow{"OpenQuote", "<p class=\"x", "<p>"},
                    GuardRow{"OpenReadQuote", "<img alt=\"x>y", "<img alt=\"x>y\">"},
                    GuardRow{"QuotedSign", "<p title=\"a>b\">c", "<p>c"},
                    GuardRow{"BlankBeforeTheSlash", "<br />a", "<br/>a"},
                    GuardRow{"BlankBehindTheSlash", "<br/ >a", "<br>a"},
                    GuardRow{"SlashOfAValue", "<a href=x/>b", "<a href=\"x/\">b"},
                    GuardRow{"EndTagWithAttributes", "</p title='>' x>a", "</p>a"},
                    GuardRow{"EndOfNothing", "a</>b</ p>c</", "a<!---->b<!---->c&lt;/"},
                    GuardRow{"NameOfAnAddress", "<a@b.example>c", "<x>c"},
                    GuardRow{"NameWithAColon", "<o:P>a</O:p>", "<o:p>a</o:p>"},
                    GuardRow{"Nul", QByteArray("a\0b", 3),
                             "a\xEF\xBF\xBD"
                             "b"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Attributes, HtmlTagGuard,
    testing::Values(GuardRow{"AllThatAreRead", "<a href=b alt=c hidden start=1 style='d:e'>f",
                             "<a href=\"b\" alt=\"c\" hidden start=\"1\" style=\"d:e\">f"},
                    GuardRow{"TheFirstOfTwo", "<a href=b HREF=c>d", "<a href=\"b\">d"},
                    GuardRow{"BlanksAroundTheSign", "<a href\t=\n'b'>c", "<a href=\"b\">c"},
                    GuardRow{"NoBlankBehindAQuote", "<a title=\"b\"href='c'>d", "<a href=\"c\">d"},
                    GuardRow{"NoValue", "<a href=>b", "<a href=\"\">b"},
                    GuardRow{"SignOfAName", "<a =href=b =\">\" href=c>d", "<a>\" href=c>d"},
                    GuardRow{"SlashBetween", "<a/href=b/hidden>c", "<a href=\"b/hidden\">c"},
                    GuardRow{"VerticalTab", "<p \vhidden>a", "<p>a"},
                    GuardRow{"QuoteInAValue", "<img alt='a\"b'>", "<img alt=\"a&quot;b\">"},
                    GuardRow{"QuoteBehindAValue", "<img alt=a\"b'c>", "<img alt=\"a&quot;b'c\">"},
                    GuardRow{"LessInAValue", "<img alt='<b c>'>", "<img alt=\"&lt;b c>\">"},
                    GuardRow{"ReferencesInAValue", "<a href='?a&b;&amp;&copy=1&#38;'>",
                             "<a href=\"?a&amp;b;&amp;&amp;copy=1&#38;\">"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Unseen, HtmlTagGuard,
    testing::Values(
        GuardRow{"Comment", "a<!-- <b c='-->d", "a<!---->d"},
        GuardRow{"EmptyComments", "<!-->a<!--->b<!---->c<!----->d",
                 "<!---->a<!---->b<!---->c<!---->d"},
        GuardRow{"CommentThatEndsByABang", "<!-- a --!>b-->", "<!---->b-->"},
        GuardRow{"CommentThatNeverEnds", "a<!-- b -- > c --", "a<!---->"},
        GuardRow{"CommentInAReference", "&#6<!---->0;&am<!---->p;", "&#6<!---->0;&amp;am<!---->p;"},
        GuardRow{"Doctype", "<!DOCTYPE html PUBLIC \"a\" 'b'>c", "<!---->c"},
        GuardRow{"Instruction", "<?xml version='1.0'?>a<?>b", "<!---->a<!---->b"},
        GuardRow{"Condition", "<![if !mso]>a<![endif]><!>b", "<!---->a<!----><!---->b"},
        GuardRow{"OpenDeclaration", "a<!b", "a<!---->"},
        GuardRow{"Script", "<script src=x>if (a<b) '</scripts>'</SCRIPT >c", "<script></script>c"},
        GuardRow{"Style", "<style><!-- a --></style>b", "<style></style>b"},
        GuardRow{"ScriptThatNeverEnds", "<script>a</script", "<script>"},
        GuardRow{"ScriptThatIsEmpty", "<script/><b>c", "<script/><b>c"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    References, HtmlTagGuard,
    testing::Values(
        GuardRow{"Known", "&amp;&eacute;&lt;&thetasym;&sup2;", "&amp;&eacute;&lt;&thetasym;&sup2;"},
        GuardRow{"Unknown", "&nothing;", "&amp;nothing;"},
        GuardRow{"WithoutSemicolon", "&eacute a&", "&amp;eacute a&amp;"},
        GuardRow{"OtherCase", "&EACUTE;", "&amp;EACUTE;"},
        GuardRow{"Numbers", "&#8364;&#x20ac;&#", "&#8364;&#x20ac;&#"},
        GuardRow{"Long", '&' + QByteArray(100, 'a') + ';', "&amp;" + QByteArray(100, 'a') + ';'}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    TooMuch, HtmlTagGuard,
    testing::Values(
        GuardRow{"Attributes", "<p" + numbered(5000, " ", "=b") + ">x", "<p>x"},
        GuardRow{"AttributesBehindAComment", "<!--<a x=\"--><b" + numbered(5000, " ", "") + ">x",
                 "<!----><b>x"},
        GuardRow{"AttributesBehindADeclaration", "<a !=\"><b" + numbered(5000, " ", "") + ">x",
                 "<a>"},
        GuardRow{"AttributesOfOneWord", "<p " + QByteArray(500000, 'a') + ">x", "<p>x"},
        GuardRow{"AttributesThatAreRead", "<p" + QByteArray(" hidden").repeated(5000) + ">x",
                 "<p hidden>x"},
        GuardRow{"OneName", '<' + QByteArray(100, 'b') + "><" + QByteArray(101, 'b') + '>',
                 '<' + QByteArray(100, 'b') + "><x>"},
        GuardRow{"Names", numbered(3000, "<", ">") + "</a999></a1000><B>",
                 numbered(1000, "<", ">") + QByteArray("<x>").repeated(2000) + "</a999></x><b>"},
        GuardRow{"References", numbered(3000, "&", ";"), numbered(3000, "&amp;", ";")}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace html_tag_guard_test
