// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Cal.h"

namespace email_cal_test {

TEST(Cal, CharsetFunctionsForward)
{
    QCString name;
    EXPECT_EQ(charsetEnumToStr_Cal(12, name), 1);
    EXPECT_EQ(name, "utf-7");
    EXPECT_EQ(charsetEnumToStr_Cal(99, name), 1);
    EXPECT_EQ(name, "us-ascii");

    QCString bytes;
    encWithCharset_Cal(bytes, QString::fromUtf8("\xD0\x96"), 11);
    EXPECT_EQ(bytes, "\xC6");
    encWithCharset_Cal(bytes, "a", 12);
    EXPECT_EQ(bytes, "\xC6");

    QString text;
    decFromCharset_Cal("\xC6", text, 11);
    EXPECT_EQ(text, QString::fromUtf8("\xD0\x96"));
    decFromCharset_Cal(QByteArray(), text, 13);
    EXPECT_EQ(text, QString::fromUtf8("\xD0\x96"));
}

} // namespace email_cal_test
