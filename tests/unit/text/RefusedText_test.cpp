// SPDX-License-Identifier: MIT
#include "utility/text/RefusedText.h"

using namespace tarvomime;

TEST(RefusedText, IsEmptyAndKnown)
{
    EXPECT_TRUE(refusedText().isEmpty());
    EXPECT_TRUE(isRefused(refusedText()));
    const QCString copy = refusedText();
    EXPECT_TRUE(isRefused(copy)) << "a copy stands for the same";
}

TEST(RefusedText, IsNoOtherText)
{
    EXPECT_FALSE(isRefused(QCString()));
    EXPECT_FALSE(isRefused(QCString("")));
    EXPECT_FALSE(isRefused(QCString::fromLiteral("")));
    EXPECT_FALSE(isRefused(QCString("text").left(0)));
}
