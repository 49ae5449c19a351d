// SPDX-License-Identifier: MIT
// The search for delimiter lines, byte by byte and through the index, beside the literal rules.
#include "tests/support/AllStrings.h"
#include "tests/support/LiteralCutting.h"
#include "tests/support/RandomText.h"
#include "utility/tree/Delimiter.h"

#include <vector>

namespace delimiter_test {

namespace {

using namespace tarvomime;

std::string_view viewOf(const QByteArray& text)
{
    return {text.constData(), std::size_t(text.size())};
}

// A finder that never uses its index, and one that never does without.
constexpr int neverIndex = 1000000;
constexpr int alwaysIndex = 0;

struct DelimiterRow
{
    const char* name;
    QByteArray text;
    QByteArray boundary;
    bool found;
    int start;
    int next;
    bool closing;
    int position = 0;
    int cutOff = 0;
};

void PrintTo(const DelimiterRow& row, std::ostream* out)
{
    *out << row.name << ": ";
    printEscaped(row.text, out);
}

void expectAsInRules(const QByteArray& text, const QByteArray& boundary, int position, int end,
                     int searches)
{
    DelimiterFinder finder(text.constData(), {0, int(text.size())}, searches);
    DelimiterIndex::Matches matches;
    const Delimiter delimiter = finder.find({position, end}, viewOf(boundary), matches);
    const literal::Delimiter expected = literal::findDelimiter(text, position, end, boundary);
    const bool same = delimiter.found == expected.found &&
                      (!delimiter.found ||
                       (delimiter.closing == expected.closing &&
                        delimiter.start == expected.start && delimiter.next == expected.next));
    if (!same)
        ADD_FAILURE() << testing::PrintToString(text) << " boundary "
                      << testing::PrintToString(boundary) << " from " << position << " to " << end
                      << " searches " << searches << ": start " << delimiter.start << " next "
                      << delimiter.next << " closing " << delimiter.closing;
}

class DelimiterRows : public testing::TestWithParam<DelimiterRow>
{
};

} // namespace

TEST_P(DelimiterRows, FindsTheNext)
{
    const DelimiterRow& row = GetParam();
    const int end = int(row.text.size()) - row.cutOff;
    for (const int searches : {neverIndex, alwaysIndex}) {
        DelimiterFinder finder(row.text.constData(), {0, end}, searches);
        DelimiterIndex::Matches matches;
        const Delimiter delimiter = finder.find({row.position, end}, viewOf(row.boundary), matches);
        EXPECT_EQ(delimiter.found, row.found) << searches;
        EXPECT_EQ(delimiter.start, row.start) << searches;
        EXPECT_EQ(delimiter.next, row.next) << searches;
        EXPECT_EQ(delimiter.closing, row.closing) << searches;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DelimiterRows,
    testing::Values(
        DelimiterRow{"at the start", "--b\nx", "b", true, 0, 4, false},
        DelimiterRow{"at the start, closing", "--b--\nx", "b", true, 0, 6, true},
        DelimiterRow{"at the start, text ends", "--b", "b", true, 0, 3, false},
        DelimiterRow{"at the start, closing, text ends", "--b--", "b", true, 0, 5, true},
        DelimiterRow{"at the start, cut short", "--b", "bc", false, 0, 0, false},
        DelimiterRow{"after LF", "x\n--b\ny", "b", true, 1, 6, false},
        DelimiterRow{"after CR LF", "x\r\n--b\r\ny", "b", true, 1, 8, false},
        DelimiterRow{"after CR LF, closing", "x\r\n--b--\r\ny", "b", true, 1, 10, true},
        DelimiterRow{"boundary is the last byte", "x\n--b", "b", true, 1, 5, false},
        DelimiterRow{"boundary cut short", "x\n--b", "bc", false, 0, 0, false},
        DelimiterRow{"one dash behind", "x\n--b-", "b", true, 1, 6, false},
        DelimiterRow{"closing at the very end", "x\n--b--", "b", true, 1, 7, true},
        DelimiterRow{"range ends inside the boundary", "x\n--bc\n", "bc", false, 0, 0, false, 0, 2},
        DelimiterRow{"range ends behind the boundary", "x\n--bc--", "bc", true, 1, 6, false, 0, 2},
        DelimiterRow{"range ends inside the closing", "x\n--bc--", "bc", true, 1, 7, false, 0, 1},
        DelimiterRow{"CR in front of the range", "x\r\n--b\n", "b", true, 2, 7, false, 2},
        DelimiterRow{"LF in front of the range", "x\n--b\n", "b", true, 2, 6, false, 2},
        DelimiterRow{"not behind a lone CR", "x\r--b\ny", "b", false, 0, 0, false},
        DelimiterRow{"not inside a line", "x --b\ny", "b", false, 0, 0, false},
        DelimiterRow{"prefix of a longer boundary", "--bc\nx", "b", true, 0, 5, false},
        DelimiterRow{"trailing text is skipped", "--b  trailing\nx", "b", true, 0, 14, false},
        DelimiterRow{"closing with text behind", "--b--x\ny", "b", true, 0, 7, true},
        DelimiterRow{"empty boundary", "x\n--\ny", "", true, 1, 5, false},
        DelimiterRow{"empty boundary, closing", "x\n----\ny", "", true, 1, 7, true},
        DelimiterRow{"empty boundary, range is two bytes", "--", "", true, 0, 2, false},
        DelimiterRow{"boundary with a fold", "\n--a\r\n b\nx", "a\r\n b", true, 0, 9, false},
        DelimiterRow{"boundary over two delimiter lines", "\n--a\n--b\nx", "a\n--b", true, 0, 9,
                     false},
        DelimiterRow{"boundary ending in a line break", "\n--a\n--b\nx", "a\n", true, 0, 9, true},
        DelimiterRow{"boundary ending in the next line's dash", "\n--a\n--b\nx", "a\n-", true, 0, 9,
                     false},
        DelimiterRow{"boundary with NUL", QByteArray("\n--a\0b\nx", 8), QByteArray("a\0b", 3), true,
                     0, 7, false},
        DelimiterRow{"boundary ending in NUL", QByteArray("\n--a\nx\n--a\0\nx", 13),
                     QByteArray("a\0", 2), true, 6, 12, false},
        DelimiterRow{"boundary with high bytes", "\n--\x80\n--\xFF\nx", "\xFF", true, 4, 9, false},
        DelimiterRow{"empty text", "", "b", false, 0, 0, false}));

// Every boundary that a parsed field can give, and some that only an application can.
TEST(DelimiterFinder, AgreesWithTheRulesOnEveryShortText)
{
    const std::vector<QByteArray> boundaries{"b", "", "-", "b-", "x\n-", "b\n x", "\n--b"};
    forAllStrings("\r\n-bx", 7, [&](const QByteArray& text) {
        for (const QByteArray& boundary : boundaries) {
            expectAsInRules(text, boundary, 0, int(text.size()), neverIndex);
            expectAsInRules(text, boundary, 0, int(text.size()), alwaysIndex);
        }
    });
}

TEST(DelimiterFinder, AgreesWithTheRulesInEveryRange)
{
    RandomText texts(1, {"\n--b", "\r\n--b", "\n--bb", "\n--", "--", "b", "\n", "\r\n", "xx"});
    for (int round = 0; round < 2000; ++round) {
        const QByteArray text = texts.next(12);
        const int size = int(text.size());
        for (int position = 0; position <= size; ++position) {
            for (const char* boundary : {"b", "bb", ""}) {
                expectAsInRules(text, boundary, position, size, alwaysIndex);
                expectAsInRules(text, boundary, position, (position + size) / 2, alwaysIndex);
                expectAsInRules(text, boundary, position, (position + size) / 2, neverIndex);
            }
        }
    }
}

// More lines of one boundary than are looked through one by one.
TEST(DelimiterFinder, StepsThroughManyLinesOfOneBoundary)
{
    QByteArray text;
    for (int i = 0; i < 100; ++i)
        text += i % 3 == 0 ? "\n--bx\ntext" : i % 3 == 1 ? "\n--by\ntext" : "\n--c\ntext";
    for (int position = 0; position < int(text.size()); ++position) {
        for (const char* boundary : {"b", "bx", "by", "c", "d"})
            expectAsInRules(text, boundary, position, int(text.size()), alwaysIndex);
    }
}

// What all lines begin with is set aside by the index: boundaries shorter than that, as long,
// longer and apart from it.
TEST(DelimiterFinder, FindsLinesWithALongCommonBeginning)
{
    const QByteArray shared = "=_one_program_";
    QByteArray text;
    for (int i = 0; i < 100; ++i)
        text += "\n--" + shared + QByteArray::number(i) + "\nx";
    for (const QByteArray& boundary :
         {shared, shared.left(3), shared + "7", shared + "77", shared + "77\n", shared + "778",
          QByteArray("=_two"), QByteArray("a"), QByteArray("=_one_programs")}) {
        for (int position = 0; position < int(text.size()); position += 7)
            expectAsInRules(text, boundary, position, int(text.size()), alwaysIndex);
    }
}

} // namespace delimiter_test
