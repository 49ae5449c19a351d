// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

namespace display_number_test {

TEST(DisplayNumber, NumbersBelowTenGetAZero)
{
    const std::pair<int, const char*> rows[] = {
        {0, "00"},   {5, "05"},   {9, "09"},     {10, "10"},
        {42, "42"},  {99, "99"},  {123, "123"},  {2147483647, "2147483647"},
        {-1, "0-1"}, {-3, "0-3"}, {-10, "0-10"}, {-2147483647 - 1, "0-2147483648"},
    };
    for (const auto& [number, expected] : rows)
        EXPECT_EQ(EMAIL_Util::getDispNum(number), expected) << number;
}

} // namespace display_number_test
