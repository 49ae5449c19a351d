// SPDX-License-Identifier: MIT
// What the face adds to the kernels behind it: overloads, flags and callbacks.
#include "utility/EMAIL_Util.h"

namespace {

int neverCalled()
{
    ADD_FAILURE() << "asked the callback";
    return -1;
}

const QByteArray bytes = "a line that is long enough to be broken once it was encoded, and its end";

} // namespace

TEST(EMAIL_Util, EveryFlagButZeroBreaksLines)
{
    for (const int flag : {1, 2, -1}) {
        EXPECT_EQ(EMAIL_Util::encB64(bytes.constData(), 72, flag),
                  EMAIL_Util::encB64(bytes.constData(), 72, 1))
            << flag;
        EXPECT_EQ(EMAIL_Util::encQp(bytes.constData(), 72, flag),
                  EMAIL_Util::encQp(bytes.constData(), 72, 1))
            << flag;
    }
    EXPECT_TRUE(EMAIL_Util::encB64(bytes.constData(), 72, 1).contains("\r\n"));
    EXPECT_FALSE(EMAIL_Util::encB64(bytes.constData(), 72, 0).contains("\r\n"));
}

TEST(EMAIL_Util, DecodingInMemoryAsksNoCallback)
{
    unsigned long length = 0;
    EXPECT_EQ(EMAIL_Util::decB64("YQ==", &length, neverCalled), "a");
    EXPECT_EQ(EMAIL_Util::decQp("=61", &length, neverCalled), "a");
    QByteArray out;
    EMAIL_Util::decFromCTE("YQ==", out, CTE_BASE64, neverCalled);
    EXPECT_EQ(out, "a");
}

TEST(EMAIL_Util, GuessesTheSameForBytesAndTheirArray)
{
    for (const QByteArray& sample : {QByteArray(), QByteArray("text"), QByteArray(100, '\xE4')}) {
        EXPECT_EQ(EMAIL_Util::guessRightCTE(sample),
                  EMAIL_Util::guessRightCTE(sample.constData(), int(sample.size())))
            << sample.toStdString();
    }
}

TEST(EMAIL_Util, SplitsAtTheFirstOrAtEverySeparator)
{
    QCString left;
    QCString right;
    EMAIL_Util::split("=", " a = b=c ", left, right, true);
    EXPECT_EQ(left, "a");
    EXPECT_EQ(right, "b=c");
    EXPECT_EQ(EMAIL_Util::split("=", "a=b=c", false),
              (QValueList<QCString>{QCString("a"), QCString("b"), QCString("c")}));
}
