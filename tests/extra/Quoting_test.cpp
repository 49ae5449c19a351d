// SPDX-License-Identifier: MIT
#include "extra/Quoting.h"

#include <gtest/gtest.h>

namespace quoting_test {

using namespace tarvomime;

namespace {

struct TextRow
{
    const char* name;
    QString text;
    QString expected;
};

class QuotedText : public testing::TestWithParam<TextRow>
{
};

class Unflowed : public testing::TestWithParam<TextRow>
{
};

class Flowed : public testing::TestWithParam<TextRow>
{
};

const auto rowName = [](const auto& row) { return std::string(row.param.name); };

} // namespace

TEST_P(QuotedText, HasMarks)
{
    EXPECT_EQ(quotedText(GetParam().text), GetParam().expected) << GetParam().text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Extra, QuotedText,
    testing::Values(TextRow{"Empty", "", ""}, TextRow{"Line", "a", "> a"},
                    TextRow{"Lines", "a\n\nb", "> a\n>\n> b"},
                    TextRow{"CarriageReturns", "a\r\n\r\nb\r\n", "> a\n>\n> b"},
                    TextRow{"Quote", "> a\n>> b", ">> a\n>>> b"},
                    TextRow{"EmptyLinesAtTheEnd", "a\n\n \n", "> a"},
                    TextRow{"Signature", "a\n-- \nAnn", "> a"},
                    TextRow{"TwoSignatures", "a\n-- \nb\n-- \nAnn", "> a\n> -- \n> b"},
                    TextRow{"NoSignature", "a\n--\nAnn", "> a\n> --\n> Ann"}),
    rowName);

TEST_P(Unflowed, IsParagraphs)
{
    EXPECT_EQ(textFromFlowed(GetParam().text), GetParam().expected)
        << GetParam().text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Extra, Unflowed,
                         testing::Values(TextRow{"Empty", "", ""}, TextRow{"Fixed", "a\nb", "a\nb"},
                                         TextRow{"Flowing", "a \r\nb\r\nc", "a b\nc"},
                                         TextRow{"Stuffed", " > a\n From b", "> a\nFrom b"},
                                         TextRow{"Quote", "> a \n> b\n>> c", "> a b\n>> c"},
                                         TextRow{"DepthChanges", "> a \nb", "> a \nb"},
                                         TextRow{"Signature", "a \n-- \nAnn", "a \n-- \nAnn"},
                                         TextRow{"QuotedSignature", "> a\n> -- \n> b",
                                                 "> a\n> -- \n> b"},
                                         TextRow{"LastLineFlows", "a ", "a "},
                                         TextRow{"EmptyQuote", ">\n> a", ">\n> a"}),
                         rowName);

TEST(UnflowedDelSp, DropsTheBlank)
{
    EXPECT_EQ(textFromFlowed("ab \ncd\n-- \nx", true), "abcd\n-- \nx");
}

TEST_P(Flowed, HasShortLines)
{
    const QString flowed = flowedText(GetParam().text);
    EXPECT_EQ(flowed, GetParam().expected) << GetParam().text.toStdString();
    for (const QString& line : flowed.split('\n'))
        EXPECT_TRUE(line.size() <= 78 || !line.trimmed().contains(' ')) << line.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Extra, Flowed,
    testing::Values(TextRow{"Empty", "", ""}, TextRow{"Short", "a\nb", "a\nb"},
                    TextRow{"Long", QString("word ").repeated(20) + "end",
                            QString("word ").repeated(14) + '\n' + QString("word ").repeated(6) +
                                "end"},
                    TextRow{"Whole", QString("word ").repeated(15) + "76",
                            QString("word ").repeated(15) + "76"},
                    TextRow{"WholeQuote", ">> " + QString("word ").repeated(14) + "78777",
                            ">> " + QString("word ").repeated(14) + "78777"},
                    TextRow{"NotWhole", ">> " + QString("word ").repeated(14) + "797877",
                            ">> " + QString("word ").repeated(13) + "\n>> word 797877"},
                    TextRow{"LongWord", QString(100, 'x'), QString(100, 'x')},
                    TextRow{"LongWordBehind", "a " + QString(100, 'x') + " b",
                            "a \n" + QString(100, 'x') + " \nb"},
                    TextRow{"BlankAtTheEnd", "a  \nb", "a\nb"},
                    TextRow{"Signature", "a\n-- \nAnn", "a\n-- \nAnn"},
                    TextRow{"From", "From here", " From here"}, TextRow{"Indented", "  a", "   a"},
                    TextRow{"Quote", "> a\n> > b\n>>c\n>", "> a\n>> b\n>> c\n>"},
                    TextRow{"LongQuote", "> " + QString("word ").repeated(20) + "end",
                            "> " + QString("word ").repeated(14) + "\n> " +
                                QString("word ").repeated(6) + "end"}),
    rowName);

TEST(OneLine, HoldsNoLineEndAndNoControl)
{
    EXPECT_EQ(oneLine(" a\r\n b \t c\n"), "a b c");
    EXPECT_EQ(oneLine(QString("a\x1B[31m") + QChar(0) + QChar(0x85) + QChar(0x2028) + "b"),
              "a [31m b");
}

// Alone on a line they would begin a signature.
TEST(FlowedDashes, StayWithTheLongWordBehindThem)
{
    const QString word(100, 'x');
    EXPECT_EQ(flowedText("-- " + word), "-- " + word);
    EXPECT_EQ(flowedText("> -- " + word), "> -- " + word);
    EXPECT_EQ(flowedText(word + " -- " + word + " z"), word + " \n-- " + word + " \nz");
}

TEST(FlowedAgain, IsTheSameText)
{
    for (const QString& text :
         {QString("a\nb\n\nc"), QString("word ").repeated(200) + "end",
          QString(" indented\n\n  more"),
          QString("> quote ") + QString("word ").repeated(50) + "end\n>> deep\n>\n> x",
          QString("a") + QString(200, ' ') + "b", QString("From a\n-- \nAnn"),
          "-- " + QString(100, 'x') + " -- " + QString(100, 'y') + "\n-- " + QString(100, 'z'),
          QString(40, '>') + ' ' + QString("word ").repeated(30) + "end"})
        EXPECT_EQ(textFromFlowed(flowedText(text)), text) << text.toStdString();
}

// The marks of a deep quote are not written on each line of many: that would be the square.
TEST(QuotingFlood, StaysInProportion)
{
    const QString marks(200000, '>');
    const QString words = QString("a ").repeated(100000);
    for (const QString& text : {marks + ' ' + words, QString("> ").repeated(100000) + words,
                                QString("> ").repeated(60) + words, words, marks}) {
        EXPECT_LE(flowedText(text).size(), 5 * text.size()) << text.left(200).toStdString();
        EXPECT_LE(quotedText(text).size(), 2 + text.size());
        EXPECT_LE(textFromFlowed(text).size(), 1 + text.size());
    }
}

} // namespace quoting_test
