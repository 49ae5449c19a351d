// SPDX-License-Identifier: MIT
#include "utility/tree/ParseSources.h"

#include "utility/EMAIL_Body.h"

namespace parse_sources_test {

using namespace tarvomime;

TEST(MemorySource, CutsSlicesOfItsText)
{
    const QCString text("0123456789");
    const MemorySource source(text);
    EXPECT_EQ(source.whole.length(), 10);
    EXPECT_EQ(source.headerText({2, 5}), "234");
    EXPECT_EQ(source.partText({2, 5}).begin(), text.begin() + 2);
}

TEST(MemorySource, TrimsTheTextOfABody)
{
    const MemorySource source("x\r\n text \n\ny");
    EMAIL_Body body;
    source.place(body, {1, 11});
    source.trim(body, {1, 11});
    EXPECT_TRUE(body.mInMemory);
    EXPECT_EQ(body.mString, " text ");
}

TEST(MemorySource, LeavesABodyWithoutTextAsItIs)
{
    EMAIL_Body body;
    MemorySource("text").trim(body, {});
    EXPECT_TRUE(body.mString.isNull());
}

TEST(FileSource, CopiesHeaderTextUpToItsFirstNul)
{
    constexpr char data[] = "A: 1\0\r\n";
    const FileSource source{QStringLiteral("path"), data, {0, 7}};
    const QCString header = source.headerText({0, 7});
    EXPECT_EQ(header, "A: 1");
    EXPECT_NE(header.begin(), data);
    EXPECT_TRUE(source.partText({0, 7}).isNull());
}

TEST(FileSource, LeavesBodiesInTheFile)
{
    constexpr char data[] = "0\r\ntext\r\n";
    const FileSource source{QStringLiteral("path"), data, {0, 9}};
    EMAIL_Body body;
    source.place(body, {1, 9});
    EXPECT_FALSE(body.mInMemory);
    EXPECT_EQ(body.mFile, QStringLiteral("path"));
    EXPECT_EQ(body.mOffset, 1);
    EXPECT_EQ(body.mLength, 8);
    source.trim(body, {1, 9});
    EXPECT_EQ(body.mOffset, 3);
    EXPECT_EQ(body.mLength, 4);
}

} // namespace parse_sources_test
