// SPDX-License-Identifier: MIT
#include "types/QCString.h"

TEST(QCString, NullAndEmptyDifferButCompareEqual)
{
    const QCString null;
    const QCString empty("");
    EXPECT_TRUE(null.isNull());
    EXPECT_TRUE(null.isEmpty());
    EXPECT_FALSE(empty.isNull());
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_EQ(null, empty);
    EXPECT_EQ(null.size(), 0);
    EXPECT_EQ(empty.size(), 1);
}
