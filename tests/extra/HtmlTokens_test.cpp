// SPDX-License-Identifier: MIT
#include "extra/HtmlTokens.h"

#include <gtest/gtest.h>

#include <string>

namespace html_tokens_test {

namespace {

struct TagRow
{
    const char* name;
    const char* html;
    // The tag's name and attributes, "/" for one that closes itself, and behind "|" what is left.
    const char* read;
};

void PrintTo(const TagRow& row, std::ostream* out)
{
    *out << row.name << ": " << row.html;
}

class HtmlTokens : public testing::TestWithParam<TagRow>
{
};

std::string bracketed(std::string_view text)
{
    return '[' + std::string(text) + ']';
}

std::string read(std::string_view html)
{
    tarvomime::HtmlTag tag(html, 1);
    std::string all = bracketed(tag.name());
    while (const auto attribute = tag.takeAttribute())
        all += bracketed(attribute->name) + (attribute->hasValue ? "=" : "") +
               (attribute->hasValue ? bracketed(attribute->value) : "");
    return all + (tag.isSelfClosed() ? "/" : "") + '|' + std::string(html.substr(tag.end()));
}

} // namespace

TEST_P(HtmlTokens, ReadsATag)
{
    EXPECT_EQ(read(GetParam().html), GetParam().read);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, HtmlTokens,
    testing::Values(TagRow{"OnlyAName", "<p>q", "[p]|q"}, TagRow{"Cut", "<p", "[p]|"},
                    TagRow{"CutBlank", "<p ", "[p]|"}, TagRow{"CutName", "<p a", "[p][a]|"},
                    TagRow{"CutSign", "<p a=", "[p][a]=[]|"},
                    TagRow{"CutBlankBehindTheSign", "<p a= ", "[p][a]=[]|"},
                    TagRow{"CutQuote", "<p a='", "[p][a]=[]|"},
                    TagRow{"CutValue", "<p a='b>", "[p][a]=[b>]|"},
                    TagRow{"Quotes", "<p a=\"'>\" b='\">'>q", "[p][a]=['>][b]=[\">]|q"},
                    TagRow{"NoQuotes", "<p a=b/ c=d'e\">q", "[p][a]=[b/][c]=[d'e\"]|q"},
                    TagRow{"Blanks", "<p\ta\n=\r b\f>q", "[p][a]=[b]|q"},
                    TagRow{"VerticalTab", "<p\va>q", "[p\va]|q"},
                    TagRow{"SignsInNames", "<p =a ==b !=\">\">q", "[p][=a]=[=b][!]=[>]|q"},
                    TagRow{"QuoteInAName", "<p a\"b>q", "[p][a\"b]|q"},
                    TagRow{"Slashes", "<p/a/ /b>q", "[p][a][b]|q"},
                    TagRow{"ClosesItself", "<p/>q", "[p]/|q"},
                    TagRow{"ClosesItselfBehindAQuote", "<p a='b'/>q", "[p][a]=[b]/|q"},
                    TagRow{"BlankBehindTheSlash", "<p/ >q", "[p]|q"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(HtmlTokensEnd, OfUnseen)
{
    const auto rest = [](std::string_view html) {
        return std::string(html.substr(tarvomime::endOfUnseen(html, 0)));
    };
    EXPECT_EQ(rest("<!-- > -- > -->q"), "q");
    EXPECT_EQ(rest("<!-->q-->"), "q-->");
    EXPECT_EQ(rest("<!--->q-->"), "q-->");
    EXPECT_EQ(rest("<!---->q"), "q");
    EXPECT_EQ(rest("<!--a--->q"), "q");
    EXPECT_EQ(rest("<!--a--!>q-->"), "q-->");
    EXPECT_EQ(rest("<!--a--!q"), "");
    EXPECT_EQ(rest("<!--"), "");
    EXPECT_EQ(rest("<!a '>'>q"), "'>q");
    EXPECT_EQ(rest("<?>q"), "q");
    EXPECT_EQ(rest("</>q"), "q");
    EXPECT_EQ(rest("<!"), "");
}

TEST(HtmlTokensEnd, OfRawText)
{
    const auto rest = [](std::string_view html) {
        return std::string(html.substr(tarvomime::endOfRawText(html, 0, "style")));
    };
    EXPECT_EQ(rest("a</b><!--</STYLE >q"), "</STYLE >q");
    EXPECT_EQ(rest("</</style/>q"), "</style/>q");
    EXPECT_EQ(rest("</styles>q"), "");
    EXPECT_EQ(rest("a</style"), "");
    EXPECT_EQ(rest(""), "");
}

} // namespace html_tokens_test
