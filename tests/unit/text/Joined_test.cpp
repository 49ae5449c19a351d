// SPDX-License-Identifier: MIT
#include "utility/text/Joined.h"

#include "utility/text/RefusedText.h"

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

TEST(AppendText, AppendsTheBytesOfASlice)
{
    QByteArray out = "<";
    appendText(out, QCString("abcd").mid(1, 2));
    appendText(out, QCString());
    EXPECT_EQ(out, "<bc");
}
