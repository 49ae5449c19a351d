// SPDX-License-Identifier: MIT
#include "extra/Result.h"

#include <gtest/gtest.h>

namespace result_test {

using tarvomime::Failure;
using tarvomime::Result;

namespace {

Result<int> half(int number)
{
    if (number % 2 != 0)
        return Failure{QStringLiteral("the number is odd")};
    return number / 2;
}

Result<QString> halfAsText(int number)
{
    const Result<int> result = half(number);
    if (!result)
        return result.failure();
    return QString::number(*result);
}

Result<void> mustBeEven(int number)
{
    const Result<int> result = half(number);
    return result ? Result<void>() : result.failure();
}

} // namespace

TEST(Result, HoldsAValue)
{
    const Result<QString> result = halfAsText(8);
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, "4");
    EXPECT_EQ(result->size(), 1);
    EXPECT_TRUE(result.reason().isEmpty());
    EXPECT_EQ(result.valueOr("none"), "4");
}

TEST(Result, HandsAReasonOn)
{
    const Result<QString> result = halfAsText(7);
    EXPECT_FALSE(result);
    EXPECT_EQ(result.reason(), "the number is odd");
    EXPECT_EQ(result.valueOr("none"), "none");
}

TEST(Result, NeedsNoValue)
{
    EXPECT_TRUE(mustBeEven(2));
    EXPECT_TRUE(mustBeEven(2).reason().isEmpty());
    EXPECT_FALSE(mustBeEven(3));
    EXPECT_EQ(mustBeEven(3).reason(), "the number is odd");
}

TEST(Result, GivesItsValueAway)
{
    Result<QString> result = QString("a long enough text");
    const QString taken = *std::move(result);
    EXPECT_EQ(taken, "a long enough text");
}

} // namespace result_test
