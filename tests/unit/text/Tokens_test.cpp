// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

namespace tokens_test {

namespace {

struct TwoWayRow
{
    QCString separator;
    QCString source;
    bool strip;
    QCString left;
    QCString right;
};

void PrintTo(const TwoWayRow& row, std::ostream* out)
{
    *out << "split(" << testing::PrintToString(row.separator) << ", "
         << testing::PrintToString(row.source) << ", " << row.strip << ')';
}

class TwoWaySplit : public testing::TestWithParam<TwoWayRow>
{
};

} // namespace

// Outputs start as "?", so that a row also shows what is left alone.
TEST_P(TwoWaySplit, Gives)
{
    const TwoWayRow& row = GetParam();
    QCString left("?");
    QCString right("?");
    EMAIL_Util::split(row.separator, row.source, left, right, row.strip);
    EXPECT_EQ(left, row.left);
    EXPECT_EQ(right, row.right);
}

INSTANTIATE_TEST_SUITE_P(Rows, TwoWaySplit,
                         testing::Values(TwoWayRow{"=", "a=b=c", false, "a", "b=c"},
                                         TwoWayRow{":", "Subject:  Hi ", true, "Subject", "Hi"},
                                         TwoWayRow{":", "Subject:  Hi ", false, "Subject", "  Hi "},
                                         TwoWayRow{":", "NoColon", true, "NoColon", "?"},
                                         TwoWayRow{":", "\t NoColon \f\v", true, "NoColon", "?"},
                                         TwoWayRow{":", " NoColon ", false, " NoColon ", "?"},
                                         TwoWayRow{":", "", true, "?", "?"},
                                         TwoWayRow{":", QCString(), true, "?", "?"},
                                         TwoWayRow{":", ":", true, "", ""},
                                         TwoWayRow{":", "a:", true, "a", ""},
                                         TwoWayRow{":", ":b", true, "", "b"},
                                         TwoWayRow{"::", "a:b::c", true, "a:b", "c"},
                                         TwoWayRow{"X", "axbXc", false, "axb", "c"},
                                         TwoWayRow{":", " \r\n : \t ", true, "", ""}));

TEST(TwoWaySplitAliasing, AnOutputMayBeTheSource)
{
    QCString text("a:b");
    QCString right;
    EMAIL_Util::split(":", text, text, right, false);
    EXPECT_EQ(text, "a");
    EXPECT_EQ(right, "b");
}

TEST(TwoWaySplitAliasing, AnOutputMayBeTheSeparator)
{
    QCString separator("::");
    QCString right;
    EMAIL_Util::split(separator, "a::b", separator, right, false);
    EXPECT_EQ(separator, "a");
    EXPECT_EQ(right, "b");
}

namespace {

struct ListRow
{
    QCString separator;
    QCString source;
    bool strip;
    QValueList<QCString> pieces;
};

void PrintTo(const ListRow& row, std::ostream* out)
{
    *out << "split(" << testing::PrintToString(row.separator) << ", "
         << testing::PrintToString(row.source) << ", " << row.strip << ')';
}

class ListSplit : public testing::TestWithParam<ListRow>
{
};

} // namespace

TEST_P(ListSplit, Gives)
{
    const ListRow& row = GetParam();
    EXPECT_EQ(EMAIL_Util::split(row.separator, row.source, row.strip), row.pieces);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ListSplit,
    testing::Values(ListRow{",", ",a,,b,", false, {"a", "b"}},
                    ListRow{",", "a, b,  ", true, {"a", " b", ""}},
                    ListRow{",", "a, b,  ", false, {"a", " b", "  "}},
                    ListRow{",", " a , b ", true, {" a ", "b"}}, ListRow{";", "", true, {}},
                    ListRow{";", QCString(), true, {}}, ListRow{";", ";", true, {}},
                    ListRow{";", "whole", true, {"whole"}}, ListRow{";", " ", true, {""}},
                    ListRow{"ab", "1ab2abab3", false, {"1", "2", "3"}},
                    ListRow{"", "any text ", false, {"any text "}},
                    ListRow{"", "any text ", true, {"any text"}}, ListRow{"", "", true, {}}));

namespace {

struct StripRow
{
    char c;
    QCString source;
    QCString expected;
};

void PrintTo(const StripRow& row, std::ostream* out)
{
    *out << "stripChar('" << row.c << "', " << testing::PrintToString(row.source) << ')';
}

class StripChar : public testing::TestWithParam<StripRow>
{
};

} // namespace

TEST_P(StripChar, Gives)
{
    const StripRow& row = GetParam();
    QCString out("?");
    EMAIL_Util::stripChar(row.c, row.source, out);
    EXPECT_EQ(out, row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StripChar,
    testing::Values(StripRow{'"', "\"x\"", "x"}, StripRow{'"', "\"\"", "?"},
                    StripRow{'"', "\"\"\"", "\"\"\""}, StripRow{'"', "\"\"abc\"\"", "abc"},
                    StripRow{'"', "abc", "abc"}, StripRow{'"', "\"abc", "abc"},
                    StripRow{'"', "abc\"", "abc"}, StripRow{'"', "a\"b", "a\"b"},
                    StripRow{'"', "\"a", "?"}, StripRow{'"', "a", "?"}, StripRow{'"', "", "?"},
                    StripRow{'"', QCString(), "?"}, StripRow{'"', "\"\"a", "a"},
                    StripRow{'x', "xxaxbxx", "axb"}));

TEST(StripCharAliasing, TheOutputMayBeTheSource)
{
    QCString text("\"abc\"");
    EMAIL_Util::stripChar('"', text, text);
    EXPECT_EQ(text, "abc");
}

} // namespace tokens_test
