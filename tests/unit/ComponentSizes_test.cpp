// SPDX-License-Identifier: MIT
// Messages of hundreds of thousands of parts and fields stay affordable only while the components
// are small. Whoever makes one grow meets this test first.
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

namespace component_sizes_test {

namespace {

struct SizeRow
{
    const char* name;
    std::size_t size;
    std::size_t limit;
};

void PrintTo(const SizeRow& row, std::ostream* out)
{
    *out << row.name;
}

class ComponentSizes : public testing::TestWithParam<SizeRow>
{
};

} // namespace

TEST_P(ComponentSizes, StaySmall)
{
    EXPECT_LE(GetParam().size, GetParam().limit);
}

INSTANTIATE_TEST_SUITE_P(Classes, ComponentSizes,
                         testing::Values(SizeRow{"text", sizeof(QCString), 24},
                                         SizeRow{"list", sizeof(QPtrList<int>), 16},
                                         SizeRow{"field", sizeof(EMAIL_Field), 96},
                                         SizeRow{"content type", sizeof(EMAIL_ContentType), 208},
                                         SizeRow{"address list", sizeof(EMAIL_AddrList), 112},
                                         SizeRow{"address", sizeof(EMAIL_Address), 56},
                                         SizeRow{"disposition", sizeof(EMAIL_DispositionType), 128},
                                         SizeRow{"date", sizeof(EMAIL_DateTime), 160},
                                         SizeRow{"header", sizeof(EMAIL_Header), 56},
                                         SizeRow{"body", sizeof(EMAIL_Body), 128},
                                         SizeRow{"message", sizeof(EMAIL_Message), 56},
                                         SizeRow{"part", sizeof(EMAIL_BodyPart), 56}));

} // namespace component_sizes_test
