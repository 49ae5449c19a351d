// SPDX-License-Identifier: MIT
// The index alone: which lines it finds for a boundary. Delimiter_test.cpp holds the search through
// it against the literal rules.
#include "utility/tree/DelimiterIndex.h"

#include "tests/support/RowNames.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

namespace delimiter_index_test {

namespace {

using tarvomime::DelimiterIndex;

struct IndexRow
{
    const char* name;
    std::string text;
    std::string boundary;
    // Of the LF in front of each line that begins with the boundary.
    std::vector<int> positions;
    int start = 0;
};

void PrintTo(const IndexRow& row, std::ostream* out)
{
    *out << row.name << ": " << row.text.substr(0, 80) << " | " << row.boundary;
}

class IndexRows : public testing::TestWithParam<IndexRow>
{
};

std::string numberedLines(int count)
{
    std::string text;
    for (int line = 0; line < count; ++line)
        text += "\n--part-" + std::to_string(line % 2);
    return text;
}

TEST_P(IndexRows, FindsEachLineInOrder)
{
    const IndexRow& row = GetParam();
    DelimiterIndex index(row.text, row.start);
    ASSERT_TRUE(DelimiterIndex::canHold(row.boundary));
    const DelimiterIndex::Matches matches = index.lookUp(row.boundary);
    ASSERT_TRUE(matches.looked);
    std::vector<int> positions;
    for (int from = 0; (from = index.find(matches, from)) >= 0; ++from)
        positions.push_back(from);
    EXPECT_EQ(positions, row.positions);
    EXPECT_TRUE(index.isUsable());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, IndexRows,
    testing::Values(
        IndexRow{"no text", "", "b", {}}, IndexRow{"no line with dashes", "a\nb\n-c\n", "b", {}},
        IndexRow{"at the start of the text is no line", "--b\n", "b", {}},
        IndexRow{"one", "x\n--b\n", "b", {1}},
        IndexRow{"several", "x\n--b\n\n--b\n--b", "b", {1, 6, 10}},
        IndexRow{"a longer one begins with it", "x\n--bc\n--b", "b", {1, 6}},
        IndexRow{"a shorter one does not", "x\n--b\n--bc", "bc", {5}},
        IndexRow{
            "behind what all lines share", "x\n--same-1\n--same-2\n--same-1", "same-1", {1, 19}},
        IndexRow{"shorter than what all share", "x\n--same-1\n--same-2", "sa", {1, 10}},
        IndexRow{"beside what all share", "x\n--same-1\n--same-2", "other", {}},
        IndexRow{
            "differing behind eight bytes", "\n--12345678a\n--12345678b\n--x", "12345678b", {12}},
        IndexRow{"bytes from 0x80 on", "\n--\xE9\n--e", "\xE9", {0}},
        IndexRow{"folded inside", "x\n--b\n c\n--b", "b\n c", {1}},
        IndexRow{"from a position on", "\n--b\n--b", "b", {4}, 1},
        IndexRow{"empty boundary", "\n--b\n--", "", {0, 4}},
        IndexRow{"more than are looked through one by one",
                 numberedLines(20),
                 "part-1",
                 {9, 27, 45, 63, 81, 99, 117, 135, 153, 171}}),
    rowName<IndexRow>);

TEST(DelimiterIndex, HoldsNoBoundaryThatReachesAcrossItsLines)
{
    EXPECT_TRUE(DelimiterIndex::canHold("--b"));
    EXPECT_TRUE(DelimiterIndex::canHold("a\n-b"));
    EXPECT_FALSE(DelimiterIndex::canHold("a\n--b"));
}

TEST(DelimiterIndex, AnswersForOneBoundaryAfterAnother)
{
    const std::string text = numberedLines(20);
    DelimiterIndex index(text, 0);
    EXPECT_EQ(index.find(index.lookUp("part-1"), 0), 9);
    EXPECT_EQ(index.find(index.lookUp("part-0"), 1), 18);
    EXPECT_EQ(index.find(index.lookUp("part-2"), 0), -1);
    EXPECT_EQ(index.find(index.lookUp("part-1"), 172), -1);
}

} // namespace

} // namespace delimiter_index_test
