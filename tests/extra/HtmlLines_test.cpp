// SPDX-License-Identifier: MIT
#include "extra/HtmlLines.h"

#include <gtest/gtest.h>

namespace html_lines_test {

using tarvomime::HtmlLines;

namespace {

struct LinesRow
{
    const char* name;
    void (*write)(HtmlLines&);
    const char* text;
};

void PrintTo(const LinesRow& row, std::ostream* out)
{
    *out << row.name;
}

class HtmlLinesRows : public testing::TestWithParam<LinesRow>
{
};

} // namespace

TEST_P(HtmlLinesRows, AreWritten)
{
    HtmlLines lines;
    GetParam().write(lines);
    EXPECT_EQ(lines.take().toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, HtmlLinesRows,
    testing::Values(
        LinesRow{"Nothing", [](HtmlLines&) {}, ""},
        LinesRow{"WhiteSpaceIsOneBlank", [](HtmlLines& l) { l.append(u"a \t\n b"); }, "a b\n"},
        LinesRow{"BlanksAtTheEndsAreNone", [](HtmlLines& l) { l.append(u"  a  "); }, "a\n"},
        LinesRow{"BlankBetweenTwoRuns",
                 [](HtmlLines& l) {
                     l.append(u"a ");
                     l.append(u"b");
                 },
                 "a b\n"},
        LinesRow{"UnseenIsLeftOut",
                 [](HtmlLines& l) {
                     l.append(u"a\x00ad\x200b"
                              u"b");
                 },
                 "ab\n"},
        LinesRow{"PreformattedKeepsItsBlanks",
                 [](HtmlLines& l) { l.appendPreformatted(u"a  b\r\n  c"); }, "a  b\n  c\n"},
        LinesRow{"LinesEndOnce",
                 [](HtmlLines& l) {
                     l.append(u"a");
                     l.endLine();
                     l.endLine();
                     l.append(u"b");
                 },
                 "a\nb\n"},
        LinesRow{"ParagraphsHaveOneEmptyLine",
                 [](HtmlLines& l) {
                     l.append(u"a");
                     l.endParagraph();
                     l.endLine();
                     l.append(u"b");
                 },
                 "a\n\nb\n"},
        LinesRow{"BreaksAddUpToTwoEmptyLines",
                 [](HtmlLines& l) {
                     l.append(u"a");
                     for (int i = 0; i < 9; ++i)
                         l.breakLine();
                     l.append(u"b");
                 },
                 "a\n\n\nb\n"},
        LinesRow{"ATextBeginsWithNoEmptyLine",
                 [](HtmlLines& l) {
                     l.endParagraph();
                     l.append(u"a");
                 },
                 "a\n"},
        LinesRow{"PrefixesStandBeforeEachLine",
                 [](HtmlLines& l) {
                     l.pushPrefix(QStringLiteral("> "));
                     l.append(u"a");
                     l.endParagraph();
                     l.append(u"b");
                     l.popPrefix();
                     l.endLine();
                     l.append(u"c");
                 },
                 "> a\n>\n> b\nc\n"},
        LinesRow{"AMarkerTakesTheInnermostPrefixsPlaceOnce",
                 [](HtmlLines& l) {
                     l.pushPrefix(QStringLiteral("  "));
                     l.setMarker(QStringLiteral("* "));
                     l.append(u"a");
                     l.endLine();
                     l.append(u"b");
                 },
                 "* a\n  b\n"},
        LinesRow{"ASeparatorStandsWithinALineAlone",
                 [](HtmlLines& l) {
                     l.separate(QStringLiteral(" | "));
                     l.append(u"a");
                     l.separate(QStringLiteral(" | "));
                     l.append(u"b");
                 },
                 "a | b\n"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(HtmlLinesText, IsNoLongerThanItsPrefixesAllow)
{
    HtmlLines lines;
    for (int depth = 0; depth < 1000; ++depth)
        lines.pushPrefix(QStringLiteral("> "));
    lines.append(u"a");
    EXPECT_EQ(lines.take(), QStringLiteral("> ").repeated(10) + QStringLiteral("a\n"));
}

TEST(HtmlLinesText, IsSeenWhileItGrows)
{
    HtmlLines lines;
    lines.append(u"one");
    const auto length = lines.length();
    lines.append(u" two");
    EXPECT_EQ(lines.written(length).toString(), QStringLiteral(" two"));
}

} // namespace html_lines_test
