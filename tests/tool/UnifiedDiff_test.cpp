// SPDX-License-Identifier: MIT
#include "tools/tarvomime/UnifiedDiff.h"

#include <gtest/gtest.h>
#include <ostream>
#include <random>
#include <string>

namespace unified_diff_test {

using namespace tarvomime::tool;

namespace {

std::string rangeOf(int start, int count)
{
    return std::to_string(start) + (count == 1 ? "" : "," + std::to_string(count));
}

// In the usual form, without the names of files. Line ends show as "\r" and "\n".
std::string printed(const std::vector<DiffHunk>& hunks)
{
    std::string out;
    for (const DiffHunk& hunk : hunks) {
        out += "@@ -" + rangeOf(hunk.before, hunk.beforeCount) + " +" +
               rangeOf(hunk.after, hunk.afterCount) + " @@\n";
        for (const DiffLine& line : hunk.lines) {
            out += line.kind == DiffLine::Kind::Both      ? ' '
                   : line.kind == DiffLine::Kind::Removed ? '-'
                                                          : '+';
            for (const char c : line.text)
                out += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
            out += '\n';
        }
    }
    return out;
}

// Each letter becomes a line.
std::string linesOf(const std::string& letters)
{
    std::string text;
    for (const char c : letters)
        text += std::string(1, c) + '\n';
    return text;
}

struct DiffRow
{
    const char* name;
    std::string before;
    std::string after;
    std::string expected;
};

void PrintTo(const DiffRow& row, std::ostream* out)
{
    *out << row.name;
}

class Diff : public testing::TestWithParam<DiffRow>
{
};

// Goes through both texts along the hunks: whatever lies between them must be equal.
void expectWhole(const std::string& before, const std::string& after)
{
    const std::string oldText = linesOf(before);
    const std::string newText = linesOf(after);
    const std::vector<DiffHunk> hunks = unifiedDiff(oldText, newText, LineEnds::Ignored);
    std::string rebuilt;
    std::size_t at = 0;
    for (const DiffHunk& hunk : hunks) {
        const auto start = static_cast<std::size_t>(hunk.before - (hunk.beforeCount > 0 ? 1 : 0));
        ASSERT_LE(at, start);
        rebuilt += before.substr(at, start - at);
        EXPECT_EQ(static_cast<int>(rebuilt.size()), hunk.after - (hunk.afterCount > 0 ? 1 : 0));
        for (const DiffLine& line : hunk.lines) {
            if (line.kind != DiffLine::Kind::Removed)
                rebuilt += line.text;
        }
        at = start + static_cast<std::size_t>(hunk.beforeCount);
    }
    EXPECT_EQ(rebuilt + before.substr(at), after) << before << "\n" << printed(hunks);
}

} // namespace

TEST_P(Diff, ShowsTheseHunks)
{
    EXPECT_EQ(printed(unifiedDiff(GetParam().before, GetParam().after, LineEnds::Ignored)),
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, Diff,
    testing::Values(
        DiffRow{"Equal", "a\nb\n", "a\nb\n", ""}, DiffRow{"BothEmpty", "", "", ""},
        DiffRow{"OnlyLineEnds", "a\r\nb", "a\nb\n", ""},
        DiffRow{"AddedToNothing", "", "a\n", "@@ -0,0 +1 @@\n+a\n"},
        DiffRow{"NothingLeft", "a\n", "", "@@ -1 +0,0 @@\n-a\n"},
        DiffRow{"ThreeLinesAround", linesOf("abcdefghi"), linesOf("abcdXfghi"),
                "@@ -2,7 +2,7 @@\n b\n c\n d\n-e\n+X\n f\n g\n h\n"},
        DiffRow{"MovedLine", linesOf("abcd"), linesOf("bcad"),
                "@@ -1,4 +1,4 @@\n-a\n b\n c\n+a\n d\n"},
        DiffRow{"TwoChangesThatTouch", linesOf("a123456b"), linesOf("A123456B"),
                "@@ -1,8 +1,8 @@\n-a\n+A\n 1\n 2\n 3\n 4\n 5\n 6\n-b\n+B\n"},
        DiffRow{"TwoChangesApart", linesOf("a1234567b"), linesOf("A1234567B"),
                "@@ -1,4 +1,4 @@\n-a\n+A\n 1\n 2\n 3\n@@ -6,4 +6,4 @@\n 5\n 6\n 7\n-b\n+B\n"},
        DiffRow{"LinesThatStandTwice", linesOf("xxyxxz"), linesOf("xyxz"),
                "@@ -1,6 +1,4 @@\n x\n-x\n y\n-x\n x\n z\n"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(UnifiedDiff, ComparesLineEndsOnRequest)
{
    EXPECT_EQ(printed(unifiedDiff("a\nb\n", "a\r\nb", LineEnds::Compared)),
              "@@ -1,2 +1,2 @@\n-a\\n\n-b\\n\n+a\\r\\n\n+b\n");
}

TEST(UnifiedDiff, LeadsFromOneTextToTheOther)
{
    std::mt19937 random(20240603);
    for (int round = 0; round < 3000; ++round) {
        const unsigned letters = 1 + random() % 12;
        std::string texts[2];
        for (std::string& text : texts) {
            for (unsigned i = random() % 40; i > 0; --i)
                text += static_cast<char>('a' + random() % letters);
        }
        expectWhole(texts[0], texts[1]);
    }
}

// Each of these takes hours where lines are compared each with each.
TEST(UnifiedDiff, TakesHostileTextsAsFastAsOthers)
{
    const std::size_t size = 100000;
    std::string alternating;
    std::string periods;
    for (std::size_t i = 0; i < size; ++i) {
        alternating += "ab"[i % 2];
        periods += static_cast<char>('a' + i % 17);
    }
    std::string equal;
    equal.append(size, 'a');
    expectWhole(equal + 'x', 'y' + equal);
    expectWhole(alternating + 'x', 'b' + alternating);
    expectWhole(periods, std::string(periods.rbegin(), periods.rend()));
    std::string counted;
    std::string backwards;
    for (std::size_t i = 0; i < size; ++i) {
        counted += std::to_string(i) + '\n';
        backwards += std::to_string(size - i) + '\n';
    }
    EXPECT_EQ(unifiedDiff(counted, backwards, LineEnds::Ignored).size(), 1U);
}

} // namespace unified_diff_test
