// SPDX-License-Identifier: MIT
#include "extra/AttachmentName.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_MultiPart.h"

#include <gtest/gtest.h>

namespace attachment_name_test {

using tarvomime::attachmentName;

namespace {

struct NameRow
{
    const char* name;
    QByteArray header;
    const char* expected;
};

class AttachmentName : public testing::TestWithParam<NameRow>
{
};

} // namespace

TEST_P(AttachmentName, IsShown)
{
    const EMAIL_Header header(GetParam().header, nullptr);
    const_cast<EMAIL_Header&>(header).parse();
    EXPECT_EQ(attachmentName(header).toUtf8(), GetParam().expected) << GetParam().header.data();
}

INSTANTIATE_TEST_SUITE_P(
    Extra, AttachmentName,
    testing::Values(
        NameRow{"None", "Subject: x\r\n", ""},
        NameRow{"Disposition", "Content-Disposition: attachment; filename=a\r\n", "a"},
        NameRow{"Type", "Content-Type: image/png; name=a\r\n", "a"},
        NameRow{
            "BlankNamesNothing",
            "Content-Type: image/png; name=a\r\nContent-Disposition: inline; filename=\"\t\"\r\n",
            "a"},
        NameRow{"DispositionBeforeType",
                "Content-Type: image/png; name=b\r\nContent-Disposition: inline; filename=a\r\n",
                "a"},
        NameRow{"TypeWhereDispositionHasNone",
                "Content-Type: image/png; name=b\r\nContent-Disposition: inline; size=1\r\n", "b"},
        NameRow{"NameInDisposition", "Content-Disposition: attachment; name=a\r\n", "a"},
        NameRow{"FileNameInType", "Content-Type: image/png; filename=a\r\n", "a"},
        NameRow{"Announced", "X-QRN-AS-Attn-Name: =?utf-8?Q?=C3=A9?=\r\n", "é"},
        NameRow{"Folded",
                "Content-Disposition: attachment;\r\n\tfilename*0*=utf-8''na%C3%AFve;\r\n"
                "\tfilename*1=\" plan.pdf\"\r\n",
                "naïve plan.pdf"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(AttachmentNameOfMessage, IsThatOfTheTopLevelPart)
{
    const EMAIL_MIME message(QByteArray(
        "Content-Type: multipart/mixed; boundary=x\r\n\r\n--x\r\n\r\ntext\r\n--x\r\n"
        "Content-Disposition: attachment; filename*=utf-8''na%C3%AFve%20plan.pdf\r\n\r\n1\r\n"
        "--x--\r\n"));
    EXPECT_EQ(attachmentName(message, 0), "");
    EXPECT_EQ(attachmentName(message, 1), QString::fromUtf8("naïve plan.pdf"));
    EXPECT_EQ(attachmentName(message, 2), "");
    EXPECT_EQ(attachmentName(message, -1), "");
    EXPECT_EQ(attachmentName(EMAIL_MIME(), 0), "");
}

} // namespace attachment_name_test
