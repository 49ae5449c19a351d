// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

namespace {

struct EncodeRow
{
    const char* name;
    QByteArray input;
    int breakLines;
    QByteArray expected;
};

class Base64Encode : public testing::TestWithParam<EncodeRow>
{
};

TEST_P(Base64Encode, InMemory)
{
    const EncodeRow& row = GetParam();
    EXPECT_EQ(EMAIL_Util::encB64(row.input.constData(),
                                 static_cast<unsigned long>(row.input.size()), row.breakLines),
              row.expected);
}

const QByteArray kFullLine = QByteArray("QUFB").repeated(19);

INSTANTIATE_TEST_SUITE_P(
    Rows, Base64Encode,
    testing::Values(
        EncodeRow{"nothing", "", 1, ""}, EncodeRow{"threeBytesBroken", "abc", 1, "YWJj\r\n"},
        EncodeRow{"threeBytes", "abc", 0, "YWJj"}, EncodeRow{"oneByte", "a", 0, "YQ=="},
        EncodeRow{"twoBytes", "ab", 0, "YWI="}, EncodeRow{"nonZeroBreaks", "ab", -7, "YWI=\r\n"},
        EncodeRow{"fullLine", QByteArray(57, 'A'), 1, kFullLine + "\r\n"},
        EncodeRow{"fullLineAndOne", QByteArray(58, 'A'), 1, kFullLine + "\r\nQQ==\r\n"},
        EncodeRow{"fullLineButOne", QByteArray(56, 'A'), 1, kFullLine.left(72) + "QUE=\r\n"},
        EncodeRow{"twoLines", QByteArray(114, 'A'), 1, (kFullLine + "\r\n").repeated(2)},
        EncodeRow{"unbroken", QByteArray(114, 'A'), 0, kFullLine.repeated(2)},
        EncodeRow{"everyBit", QByteArray::fromHex("fffefdfcfbfa00"), 0, "//79/Pv6AA=="}),
    [](const auto& row) { return row.param.name; });

} // namespace
