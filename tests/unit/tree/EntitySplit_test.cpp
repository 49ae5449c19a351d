// SPDX-License-Identifier: MIT
#include "utility/tree/EntitySplit.h"

#include "tests/support/AllStrings.h"
#include "tests/support/RowNames.h"

namespace entity_split_test {

namespace {

using namespace tarvomime;

struct Row
{
    const char* name;
    std::string_view text;
    std::string_view header;
    std::string_view body;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

const Row rows[] = {
    {"Nothing", "", "", ""},
    {"CrLf", "A: 1\r\n\r\nbody", "A: 1\r\n", "body"},
    {"Lf", "A: 1\n\nbody", "A: 1\n", "body"},
    {"LeadingBlankLines", "\r\n\n\rA: 1\n\nbody", "A: 1\n", "body"},
    {"HeaderOnly", "A: 1\r\nB: 2", "A: 1\r\nB: 2", ""},
    {"NoColonEndsTheHeader", "A: 1\nno colon\nB: 2\n", "A: 1\n", "no colon\nB: 2\n"},
    {"NoHeader", "no colon\nbody", "", "no colon\nbody"},
    {"Folded", "A: 1\n\tmore\n x\n\nbody", "A: 1\n\tmore\n x\n", "body"},
    {"UnterminatedLastLineStays", "A: 1\nno colon", "A: 1\nno colon", ""},
    {"BothSeparators", "A: 1\n\n\r\nbody", "A: 1\n", "body"},
    {"OneSeparatorOnly", "A: 1\n\n\nbody", "A: 1\n", "\nbody"},
};

class EntitySplitRows : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(EntitySplitRows, CutsHeaderFromBody)
{
    const std::string_view text = GetParam().text;
    const EntitySplit split = splitEntity(text.data(), {0, int(text.size())});
    EXPECT_EQ(viewOf(text.data(), split.header), GetParam().header);
    EXPECT_EQ(text.substr(std::size_t(split.bodyStart)), GetParam().body);
}

INSTANTIATE_TEST_SUITE_P(Rows, EntitySplitRows, testing::ValuesIn(rows), rowName<Row>);

TEST(EntitySplitRanges, LieWhereTheEntityLies)
{
    constexpr char text[] = "B: 2\n\n\nA: 1\n\nbody";
    const EntitySplit split = splitEntity(text, {6, 17});
    EXPECT_EQ(split.header.start, 7);
    EXPECT_EQ(split.header.end, 12);
    EXPECT_EQ(split.bodyStart, 13);
}

} // namespace entity_split_test
