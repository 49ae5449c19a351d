// SPDX-License-Identifier: MIT
#include "extra/CharsetStatistics.h"

#include <gtest/gtest.h>

namespace charset_statistics_test {

using tarvomime::charsetByStatistics;

namespace {

const QByteArray russianInKoi8 = "\xF3\xE5\xE7\xEF\xC4\xCE\xD1 \xC8\xCF\xD2\xCF\xDB\xC1\xD1 "
                                 "\xD0\xCF\xC7\xCF\xC4\xC1, \xC9 \xCD\xD9 \xD0\xCF\xCA\xC4\xA3\xCD "
                                 "\xC7\xD5\xCC\xD1\xD4\xD8 \xD7 \xD0\xC1\xD2\xCB\xC5.\n";

} // namespace

TEST(CharsetStatistics, LooksAtLetters)
{
    EXPECT_EQ(charsetByStatistics("caf\xC3\xA9, na\xC3\xAFve, r\xC3\xA9sum\xC3\xA9\n"), "UTF-8");
    EXPECT_EQ(charsetByStatistics(russianInKoi8.repeated(4)), "KOI8-R");
}

// Only so much is looked at, from the first line with a byte from 0x80 on.
TEST(CharsetStatistics, PassesOverWhatIsPlain)
{
    const QByteArray plain = QByteArray("nothing but plain letters here\n").repeated(5000);
    EXPECT_EQ(charsetByStatistics(plain + russianInKoi8.repeated(4)), "KOI8-R");
}

TEST(CharsetStatistics, SeesNothingInNothing)
{
    EXPECT_EQ(charsetByStatistics(""), "");
}

} // namespace charset_statistics_test
