// SPDX-License-Identifier: MIT
#include "utility/text/Joined.h"

namespace joined_test {

using namespace tarvomime;

TEST(Joined, PutsThePiecesOneBehindTheOther)
{
    EXPECT_EQ(joined({"Name", ": ", "", "body", "\r\n"}), "Name: body\r\n");
    EXPECT_TRUE(joined({}).isEmpty());
    EXPECT_TRUE(joined({"", ""}).isEmpty());
}

TEST(Joined, RefusesPiecesThatAreTooLongTogether)
{
    // Sizes alone decide: the bytes behind the views are never looked at.
    const char byte = 'x';
    const std::string_view longest(&byte, QCString::longestLength);
    EXPECT_TRUE(isRefused(joined({longest, "x"})));
    EXPECT_TRUE(isRefused(joined({longest, longest, longest, longest})));
}

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

} // namespace joined_test
