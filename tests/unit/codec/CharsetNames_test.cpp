// SPDX-License-Identifier: MIT
#include "utility/codec/CharsetNames.h"

namespace charset_names_test {

namespace {

using namespace tarvomime;

struct Row
{
    int charset;
    std::string_view written;
    const char* codec;
    bool singleByte;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.charset;
}

class CharsetNames : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(CharsetNames, AnswersForEveryNumber)
{
    EXPECT_EQ(mimeCharsetName(GetParam().charset), GetParam().written);
    EXPECT_STREQ(codecName(GetParam().charset), GetParam().codec);
    EXPECT_EQ(isSingleByte(GetParam().charset), GetParam().singleByte);
}

INSTANTIATE_TEST_SUITE_P(Rows, CharsetNames,
                         testing::Values(Row{-1, "us-ascii", "ISO 8859-1", true},
                                         Row{CHARSET_UNKNOWN, "us-ascii", "ISO 8859-1", true},
                                         Row{CHARSET_US_ASCII, "us-ascii", "ISO 8859-1", true},
                                         Row{CHARSET_UTF_8, "utf-8", "UTF-8", false},
                                         Row{CHARSET_GB2312, "gb2312", "GBK", false},
                                         Row{CHARSET_TIS620, "tis620", "ISO 8859-11", true},
                                         Row{CHARSET_ISO_8859_15, "iso-8859-15", "ISO 8859-15",
                                             true},
                                         Row{kCharsetCount, "us-ascii", "ISO 8859-1", true}));

TEST(CharsetNamesTable, IsReadBackFromWhatItWrites)
{
    for (int charset = CHARSET_US_ASCII; charset < kCharsetCount; ++charset)
        EXPECT_EQ(charsetFromName(mimeCharsetName(charset)), charset) << mimeCharsetName(charset);
}

TEST(CharsetNamesTable, CountsWhatIsNoCharsetAsUnknown)
{
    EXPECT_EQ(knownCharset(-1), CHARSET_UNKNOWN);
    EXPECT_EQ(knownCharset(kCharsetCount), CHARSET_UNKNOWN);
    EXPECT_EQ(knownCharset(kCharsetCount - 1), CHARSET_ISO_8859_15);
    EXPECT_EQ(charsetFromName("macintosh"), CHARSET_UNKNOWN);
}

TEST(CharsetNamesTable, RecognisesAnExactNameAsAnyOther)
{
    for (int charset = CHARSET_US_ASCII; charset < kCharsetCount; ++charset) {
        const std::string_view name = mimeCharsetName(charset);
        SCOPED_TRACE(std::string(name));
        // Alone "koi8" is the key.
        const std::string_view key = charset == CHARSET_KOI8_U ? name.substr(0, 4) : name;
        EXPECT_EQ(charsetOfExactName(key), charset);
        EXPECT_EQ(charsetFromName(name), charset);
        const QByteArray upper = QByteArray(key.data(), static_cast<int>(key.size())).toUpper();
        EXPECT_EQ(charsetOfExactName(upper.constData()), charset);
        EXPECT_EQ(charsetOfExactName((upper + "?Q").constData()), CHARSET_UNKNOWN);
    }
}

} // namespace charset_names_test
