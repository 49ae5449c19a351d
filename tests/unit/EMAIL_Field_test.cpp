// SPDX-License-Identifier: MIT
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"

#include <memory>
#include <typeinfo>

namespace email_field_test {

TEST(EMAIL_Field, StartsUnparsedAndEmpty)
{
    EMAIL_Header header;
    const EMAIL_Field empty;
    EXPECT_EQ(empty.mParsed, 0);
    EXPECT_TRUE(empty.mName.isEmpty());
    EXPECT_TRUE(empty.mBody.isEmpty());
    EXPECT_EQ(empty.mParent, nullptr);
    const EMAIL_Field given(QCString("X: 1"), &header);
    EXPECT_EQ(given.mParsed, 0);
    EXPECT_TRUE(given.mName.isEmpty());
    EXPECT_EQ(given.getMessage(), "X: 1");
    EXPECT_EQ(given.mParent, &header);
}

TEST(EMAIL_Field, ParsingAPlainFieldOnlySetsTheFlag)
{
    EMAIL_Field field;
    field.mBody = "  any; text ";
    field.parse();
    EXPECT_EQ(field.mParsed, 1);
    EXPECT_EQ(field.mBody, "  any; text ");
}

namespace {

struct LineRow
{
    QCString name;
    QCString body;
    QCString line;
};

void PrintTo(const LineRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.name) << ", " << testing::PrintToString(row.body);
}

class FieldLine : public testing::TestWithParam<LineRow>
{
};

} // namespace

TEST_P(FieldLine, Assembles)
{
    EMAIL_Field field(QCString("old line"), nullptr);
    field.mName = GetParam().name;
    field.mBody = GetParam().body;
    field.assemble();
    EXPECT_EQ(field.getMessage(), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FieldLine,
    testing::Values(LineRow{"Subject", "Hi", "Subject: Hi\r\n"}, LineRow{"Subject", "", ""},
                    LineRow{"Subject", QCString(), ""}, LineRow{"", "x", ": x\r\n"},
                    LineRow{"A", "1\r\n\t2", "A: 1\r\n\t2\r\n"},
                    LineRow{"A", QCString(QByteArray(2000, 'x')),
                            "A: " + QCString(QByteArray(2000, 'x')) + "\r\n"}));

} // namespace email_field_test
