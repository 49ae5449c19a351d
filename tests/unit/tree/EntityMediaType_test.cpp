// SPDX-License-Identifier: MIT
#include "utility/tree/EntityMediaType.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Message.h"

namespace entity_media_type_test {

namespace {

using namespace tarvomime;

struct Row
{
    const char* header;
    int type;
    int subType;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.header;
}

class EntityMediaType : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(EntityMediaType, IsWhatTheFieldSays)
{
    EMAIL_Message message(QCString(GetParam().header) + "\r\n\r\n", nullptr);
    message.parse();
    const MediaType media = mediaTypeOf(message);
    EXPECT_EQ(media.type, GetParam().type);
    EXPECT_EQ(media.subType, GetParam().subType);
}

INSTANTIATE_TEST_SUITE_P(Rows, EntityMediaType,
                         testing::Values(Row{"Subject: none", TYPE_TEXT, SUBTYPE_PLAIN},
                                         Row{"Content-Type: image/png", TYPE_IMAGE, SUBTYPE_PNG},
                                         Row{"Content-Type: what/ever", TYPE_UNKNOWN,
                                             SUBTYPE_UNKNOWN},
                                         Row{"Content-Type: multipart/mixed; boundary=b",
                                             TYPE_MULTIPART, SUBTYPE_MIXED}));

TEST(FirstSubPart, IsThatOfAContainerOnly)
{
    const QCString parts = "\r\n\r\n--b\r\nA: 1\r\n\r\none\r\n--b\r\nA: 2\r\n\r\ntwo\r\n--b--\r\n";
    EMAIL_Message container("Content-Type: multipart/mixed; boundary=b" + parts, nullptr);
    EMAIL_Message text("Content-Type: text/plain; boundary=b" + parts, nullptr);
    EMAIL_Message empty("Content-Type: multipart/mixed; boundary=c" + parts, nullptr);
    for (EMAIL_Message* message : {&container, &text, &empty})
        message->parse();
    ASSERT_NE(firstSubPart(container), nullptr);
    EXPECT_EQ(firstSubPart(container)->mBody->mString, "one");
    EXPECT_EQ(firstSubPart(text), nullptr);
    EXPECT_EQ(firstSubPart(empty), nullptr);
}

} // namespace entity_media_type_test
