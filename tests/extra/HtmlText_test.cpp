// SPDX-License-Identifier: MIT
#include "extra/HtmlText.h"

#include <gtest/gtest.h>

namespace html_text_test {

namespace {

struct HtmlRow
{
    const char* name;
    QString html;
    QString text;
};

class HtmlText : public testing::TestWithParam<HtmlRow>
{
};

} // namespace

TEST_P(HtmlText, IsReadable)
{
    EXPECT_EQ(tarvomime::textFromHtml(GetParam().html), GetParam().text)
        << GetParam().html.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Running, HtmlText,
    testing::Values(
        HtmlRow{"Nothing", "", ""}, HtmlRow{"OnlyBlanks", " \n ", ""},
        HtmlRow{"PlainText", "Hello", "Hello\n"},
        HtmlRow{"Document",
                "<!DOCTYPE html><html><head><title>T</title></head><body>a</body></html>", "a\n"},
        HtmlRow{"BlanksAreOne", "a \t\n  b", "a b\n"},
        HtmlRow{"InlineElements", "a<b>b</b> <i>c</i>d", "ab cd\n"},
        HtmlRow{"Entities", "&lt;&amp;&gt;&eacute;&#8364;&#x20AC;", "<&>é€€\n"},
        HtmlRow{"UnknownEntity", "a &nothing; b", "a &nothing; b\n"},
        HtmlRow{"NoBreakSpaces", "a&nbsp;&nbsp;b", "a  b\n"},
        HtmlRow{"UnseenCharacters", QString("a") + QChar(0x200B) + QChar(0xAD) + "b", "ab\n"},
        HtmlRow{"Unicode", "日本 😀", "日本 😀\n"},
        HtmlRow{"LabelOfAnotherCharset",
                "<meta http-equiv=Content-Type content='text/html; charset=koi8-r'>é", "é\n"},
        HtmlRow{"Nul", QString("a") + QChar(0) + "b", QString("a") + QChar(0xFFFD) + "b\n"},
        HtmlRow{"LoneLess", "1 < 2 and 3 > 2", "1 < 2 and 3 > 2\n"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Blocks, HtmlText,
    testing::Values(
        HtmlRow{"Paragraphs", "<p>a</p><p>b", "a\n\nb\n"},
        HtmlRow{"Divisions", "<div>a</div><div>b</div>", "a\nb\n"},
        HtmlRow{"EmptyDivisions", "<div>a</div><div> </div><div></div><div>b</div>", "a\nb\n"},
        HtmlRow{"Breaks", "a<br>b<br><br>c", "a\nb\n\nc\n"},
        HtmlRow{"BreakThatIsALine", "<div>a</div><div><br></div><div>b</div>", "a\n\nb\n"},
        HtmlRow{"BreakAtTheEndOfALine", "<div>a<br></div><div>b</div>", "a\nb\n"},
        HtmlRow{"ManyBreaks", "a<br><br><br><br><br>b", "a\n\n\nb\n"},
        HtmlRow{"Headings", "a<h1>b</h1>c", "a\n\nb\n\nc\n"},
        HtmlRow{"Rule", "<div>a</div><hr><div>b</div>", "a\n----------\nb\n"},
        HtmlRow{"Preformatted", "<pre>a\n  b\n\nc</pre>d", "a\n  b\n\nc\n\nd\n"},
        HtmlRow{"Quote", "a<blockquote>b<br>c</blockquote>d", "a\n\n> b\n> c\n\nd\n"},
        HtmlRow{"QuotedParagraphs", "<blockquote><p>a<p>b</blockquote>", "> a\n>\n> b\n"},
        HtmlRow{"QuoteInAQuote", "<blockquote>a<blockquote>b</blockquote></blockquote>",
                "> a\n>\n> > b\n"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    ListsAndTables, HtmlText,
    testing::Values(
        HtmlRow{"List", "a<ul><li>b<li>c</ul>d", "a\n\n- b\n- c\n\nd\n"},
        HtmlRow{"NumberedList", "<ol><li>a</li><li>b</li></ol>", "1. a\n2. b\n"},
        HtmlRow{"NumberedFrom", "<ol start=9><li>a<li>b</ol>", "9. a\n10. b\n"},
        HtmlRow{"ItemOfTwoLines", "<ul><li>a<br>b</ul>", "- a\n  b\n"},
        HtmlRow{"ListInAList", "<ul><li>a<ol><li>b</ol><li>c</ul>", "- a\n  1. b\n- c\n"},
        HtmlRow{"ListInAQuote", "<blockquote><ul><li>a<li>b</ul></blockquote>", "> - a\n> - b\n"},
        HtmlRow{"ItemWithoutAList", "<li>a", "- a\n"},
        HtmlRow{"Definitions", "<dl><dt>a<dd>b</dl>", "a\n  b\n"},
        HtmlRow{"Table", "<table><tr><td>a<td>b<tr><td>c<td>d</table>", "a | b\nc | d\n"},
        HtmlRow{"HeadOfATable", "<table><tr><th>a</th><th>b</th></tr></table>", "a | b\n"},
        HtmlRow{"EmptyCells", "<table><tr><td>&nbsp;<td>a<td> <td>b</table>", "a | b\n"},
        HtmlRow{"CellsForLayout", "<table><tr><td><p>a</p></td><td><p>b</p></td></tr></table>",
                "a\n\nb\n"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    LinksAndImages, HtmlText,
    testing::Values(
        HtmlRow{"Link", "<a href='http://a.example/x'>here</a>.", "here <http://a.example/x>.\n"},
        HtmlRow{"LinkThatSaysItself", "<a href='http://a.example/'>http://A.example</a>",
                "http://A.example\n"},
        HtmlRow{"LinkThatSaysItsHost", "<a href='https://a.example/'>a.example</a>", "a.example\n"},
        HtmlRow{"MailLink", "<a href='mailto:a@b.example'>a@b.example</a>", "a@b.example\n"},
        HtmlRow{"DeceivingLink", "<a href='http://evil.example'>http://bank.example</a>",
                "http://bank.example <http://evil.example>\n"},
        HtmlRow{"Anchor", "<a name=x>a</a> <a href='#x'>b</a>", "a b\n"},
        HtmlRow{"ScriptLink", "<a href='javascript:x()'>a</a>", "a\n"},
        HtmlRow{"LinkWithControls", "<a href='http://a.example/\nx'>a</a>",
                "a <http://a.example/ x>\n"},
        HtmlRow{"LinkAroundNothing", "<a href='http://a.example'><img src=x></a>b", "b\n"},
        HtmlRow{"Image", "<img src='http://a.example/x.png' alt='A cat'>", "[A cat]\n"},
        HtmlRow{"ImageWithoutText", "a<img src=x>b", "ab\n"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Hidden, HtmlText,
    testing::Values(HtmlRow{"Style", "<style>p{color:red}</style>a", "a\n"},
                    HtmlRow{"Script", "<script>alert('<p>b</p>')</script>a", "a\n"},
                    HtmlRow{"Comment", "a<!-- b -->c", "ac\n"},
                    HtmlRow{"CommentOfOneProgram", "<!--[if mso]><p>b</p><![endif]-->a", "a\n"},
                    HtmlRow{"Title", "<title>b</title>a", "a\n"},
                    HtmlRow{"DisplayNone",
                            "<div style='color:red; Display : NONE !important'>b<p>c</p></div>a",
                            "a\n"},
                    HtmlRow{"VisibilityHidden", "<span style=visibility:hidden>b</span>a", "a\n"},
                    HtmlRow{"NotOpaque", "<span style='opacity:0'>b</span>a", "a\n"},
                    HtmlRow{"HiddenAttribute", "<p hidden>b</p>a", "a\n"},
                    HtmlRow{"ShownStyle", "<p style='display:block'>a</p>", "a\n"},
                    HtmlRow{"Select", "<select><option>b</select>a", "a\n"},
                    HtmlRow{"Frame", "<iframe src='http://a.example'>b</iframe>a", "a\n"},
                    HtmlRow{"HiddenInsideHidden", "<div hidden><div hidden>b</div>c</div>a", "a\n"},
                    HtmlRow{"HiddenThatNeverEnds", "<p>a</p><div hidden>b", "a\n"},
                    HtmlRow{"DeepInsideHidden",
                            "a<div hidden>" + QString("<div>").repeated(400) + "b" +
                                QString("</div>").repeated(300) + "c",
                            "a\n"}),
    [](const auto& row) { return std::string(row.param.name); });

namespace {

struct HostileRow
{
    const char* name;
    QString html;
    QString holds;
};

class HostileHtml : public testing::TestWithParam<HostileRow>
{
};

constexpr int kMany = 300000;

// "a0", "a1" and so on, each between the two texts.
QString numbered(const char* before, const char* behind)
{
    QString all;
    for (int i = 0; i < kMany; ++i)
        all += before + ('a' + QString::number(i)) + behind;
    return all;
}

} // namespace

// Each of these takes hours where a rule is not linear, and a stack where one recurses.
TEST_P(HostileHtml, IsReadInLinearTime)
{
    const QString text = tarvomime::textFromHtml(GetParam().html);
    EXPECT_TRUE(text.contains(GetParam().holds)) << text.size();
    EXPECT_LT(text.size(), GetParam().html.size() * 12);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, HostileHtml,
    testing::Values(
        HostileRow{"DeepDivisions", QString("<div>").repeated(kMany) + "found", "found"},
        HostileRow{"DeepAndBack",
                   QString("<b>").repeated(kMany) + "found" + QString("</b>").repeated(kMany),
                   "found"},
        HostileRow{"DeepAndOthersEnds",
                   QString("<b>").repeated(kMany) + "found" + QString("</i>").repeated(kMany),
                   "found"},
        HostileRow{"DeepQuotes", QString("<blockquote>a").repeated(kMany) + "found", "found"},
        HostileRow{"DeepLists", QString("<ul><li>a").repeated(kMany) + "found", "found"},
        HostileRow{"DeepTables", QString("<table><tr><td>a").repeated(kMany) + "found", "found"},
        HostileRow{"DeepLinks", QString("<a href=http://a.example>a").repeated(kMany) + "found",
                   "found"},
        HostileRow{"ManyAttributes", "<p " + numbered("", " ") + ">found", "found"},
        HostileRow{"ManyQuotedAttributes", "<p " + numbered("", "='>'") + ">found", "found"},
        HostileRow{"ManyAttributesBehindAComment",
                   "<!--<a x=\"--><b " + numbered("", " ") + ">found", "found"},
        HostileRow{"ManyAttributesBehindASign", "<a =\"><b " + numbered("", " ") + ">found",
                   "found"},
        HostileRow{"OneLongAttribute", "<p " + QString("a").repeated(20 * kMany) + ">found",
                   "found"},
        HostileRow{"ManyNames", numbered("<", ">") + "found", "found"},
        HostileRow{"ManyNamesOfAttributes", numbered("<b ", ">") + "found", "found"},
        HostileRow{"ManyReferences", numbered("&", ";") + "found", "&a299999;found"},
        HostileRow{"ManyLess", QString("<").repeated(kMany) + "found", "<"},
        HostileRow{"ManyComments", "found" + QString("<!--").repeated(kMany), "found"},
        HostileRow{"ManyDeclarations", "found" + QString("<!").repeated(kMany), "found"},
        HostileRow{"ManyAmpersands", "found" + QString("&").repeated(kMany), "found"},
        HostileRow{"ManyScripts", "found" + QString("<script></").repeated(kMany), "found"},
        HostileRow{"OneLongWord", QString("a").repeated(20 * kMany) + "found", "found"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace html_text_test
