// SPDX-License-Identifier: MIT
#include "extra/PartHeader.h"

#include "utility/EMAIL_Message.h"

#include <gtest/gtest.h>

namespace part_header_test {

namespace {

struct PartRow
{
    const char* name;
    const char* header;
    const char* mediaType = "text/plain";
    const char* charset = "";
    const char* contentId = "";
    bool attachment = false;
    bool named = false;
};

void PrintTo(const PartRow& row, std::ostream* out)
{
    *out << row.header;
}

class PartHeader : public testing::TestWithParam<PartRow>
{
};

} // namespace

TEST_P(PartHeader, IsRead)
{
    const PartRow& row = GetParam();
    EMAIL_Message message(QCString(row.header) + "\r\nbody\r\n", nullptr);
    message.parse();
    EXPECT_EQ(tarvomime::typeNameOf(message), row.mediaType);
    EXPECT_EQ(tarvomime::typeParameter(message, "charset"), row.charset);
    EXPECT_EQ(tarvomime::contentIdOf(message), row.contentId);
    EXPECT_EQ(tarvomime::saysAttachment(message), row.attachment);
    EXPECT_EQ(tarvomime::isNamed(message), row.named);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, PartHeader,
    testing::Values(
        PartRow{"Nothing", "Subject: x\r\n"},
        PartRow{"TypeInCapitals", "Content-Type: Text/HTML; charset=UTF-8\r\n", "text/html",
                "UTF-8"},
        PartRow{"QuotedParameter", "Content-Type: text/plain; charset=\"utf-8\"\r\n", "text/plain",
                "utf-8"},
        PartRow{"Id", "Content-Id: <a@b>\r\n", "text/plain", "", "a@b"},
        PartRow{"IdWithoutBrackets", "Content-Id: a@b \r\n", "text/plain", "", "a@b"},
        PartRow{"Attachment", "Content-Disposition: attachment\r\n", "text/plain", "", "", true},
        PartRow{"NamedAttachment", "Content-Disposition: attachment; filename=a.txt\r\n",
                "text/plain", "", "", true, true},
        PartRow{"NamedByItsType", "Content-Type: image/png; name=a.png\r\n", "image/png", "", "",
                false, true}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PartTypes, ThatHoldParts)
{
    for (const char* type :
         {"multipart/mixed", "multipart/x", "application/vnd.wap.multipart.mixed",
          "application/vnd.wap.multipart.related"})
        EXPECT_TRUE(tarvomime::isContainerType(type)) << type;
    for (const char* type :
         {"text/plain", "message/rfc822", "application/vnd.wap.multipart.form", ""})
        EXPECT_FALSE(tarvomime::isContainerType(type)) << type;
}

TEST(PartTypes, ThatEncloseAMessage)
{
    for (const char* type : {"message/rfc822", "message/global", "message/news"})
        EXPECT_TRUE(tarvomime::isMessageType(type)) << type;
    for (const char* type : {"message/partial", "message/delivery-status", "multipart/mixed", ""})
        EXPECT_FALSE(tarvomime::isMessageType(type)) << type;
}

} // namespace part_header_test
