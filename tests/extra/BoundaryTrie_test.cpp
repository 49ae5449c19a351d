// SPDX-License-Identifier: MIT
#include "extra/BoundaryTrie.h"

#include "tests/support/RandomText.h"
#include "tests/support/RowNames.h"

#include <string>

namespace boundary_trie_test {

using tarvomime::BoundaryTrie;

namespace {

// The outermost of the boundaries that `text` begins with, looked for one by one.
std::pair<int, std::size_t> findPlainly(const std::vector<std::string>& open,
                                        const std::string& text)
{
    for (std::size_t i = 0; i < open.size(); ++i) {
        if (text.compare(0, open[i].size(), open[i]) == 0)
            return {static_cast<int>(i), open[i].size()};
    }
    return {-1, 0};
}

std::pair<int, std::size_t> find(const BoundaryTrie& trie, const std::string& text)
{
    std::size_t length = 0;
    const int found = trie.find(text, length);
    return {found, length};
}

} // namespace

TEST(BoundaryTrie, TellsTheOutermostContainer)
{
    BoundaryTrie trie;
    EXPECT_EQ(find(trie, "a").first, -1);
    for (const char* boundary : {"inner-long", "inner", "inner"})
        trie.push(boundary);
    EXPECT_EQ(find(trie, "inner-longest"), std::pair(0, std::size_t(10)));
    EXPECT_EQ(find(trie, "inner--"), std::pair(1, std::size_t(5)));
    EXPECT_EQ(find(trie, "inne").first, -1);
    trie.closeTo(1);
    EXPECT_EQ(trie.count(), 1);
    EXPECT_EQ(find(trie, "inner").first, -1);
    trie.push("");
    EXPECT_EQ(find(trie, "anything"), std::pair(1, std::size_t(0)));
}

TEST(BoundaryTrie, TellsBoundariesApartThatBeginAlike)
{
    BoundaryTrie trie;
    for (const char* boundary : {"romane", "romanus", "romulus", "rom", "rubens", "romane"})
        trie.push(boundary);
    EXPECT_EQ(find(trie, "romanes"), std::pair(0, std::size_t(6)));
    EXPECT_EQ(find(trie, "romanus"), std::pair(1, std::size_t(7)));
    EXPECT_EQ(find(trie, "romulus"), std::pair(2, std::size_t(7)));
    EXPECT_EQ(find(trie, "roman"), std::pair(3, std::size_t(3)));
    EXPECT_EQ(find(trie, "rubens"), std::pair(4, std::size_t(6)));
    EXPECT_EQ(find(trie, "r").first, -1);
    trie.closeTo(1);
    EXPECT_EQ(find(trie, "romane"), std::pair(0, std::size_t(6)));
    EXPECT_EQ(find(trie, "romulus").first, -1);
}

namespace {

struct PiecesRow
{
    const char* name;
    std::vector<QByteArray> pieces;
    unsigned int most;
};

void PrintTo(const PiecesRow& row, std::ostream* out)
{
    *out << row.name;
}

class RandomNests : public testing::TestWithParam<PiecesRow>
{
};

} // namespace

TEST_P(RandomNests, AreFoundAsOneByOne)
{
    RandomText texts(5, GetParam().pieces);
    BoundaryTrie trie;
    std::vector<std::string> open;
    for (int round = 0; round < 20000; ++round) {
        const std::string text = texts.next(GetParam().most).toStdString();
        if (round % 7 == 0 && open.size() > 3) {
            open.resize(text.size() % open.size());
            trie.closeTo(static_cast<int>(open.size()));
        } else if (round % 3 == 0) {
            open.push_back(text);
            trie.push(text);
        }
        ASSERT_EQ(find(trie, text), findPlainly(open, text)) << testing::PrintToString(text);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Extra, RandomNests,
    testing::Values(PiecesRow{"Short", {"a", "b", "ab", QByteArray("\0\xFF", 2), "-"}, 4},
                    PiecesRow{"Long", {QByteArray(300, 'a'), "a", "b"}, 6},
                    PiecesRow{"AlikeAtTheirBeginning",
                              {"----=_Part_", "----=_Next", "----", "=", "_", "1", "2"},
                              5}),
    rowName<PiecesRow>);

} // namespace boundary_trie_test
