// SPDX-License-Identifier: MIT
#include "utility/EMAIL_BodyPart.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"

namespace email_body_part_test {

TEST(EMAIL_BodyPart, BeginsWithAnEmptyHeaderAndBody)
{
    const EMAIL_BodyPart entity;
    ASSERT_NE(entity.mHeader, nullptr);
    ASSERT_NE(entity.mBody, nullptr);
    EXPECT_EQ(entity.mHeader->mFields.count(), 0);
    EXPECT_EQ(entity.mParent, nullptr);
}

TEST(EMAIL_BodyPart, IsAnEntityOverItsText)
{
    EMAIL_Body parent;
    EMAIL_BodyPart entity("Subject: Hi\r\n\r\ntext", &parent);
    EXPECT_EQ(entity.mParent, &parent);
    entity.parse();
    EXPECT_EQ(entity.mHeader->getSubject(), "Hi");
    EXPECT_EQ(entity.mBody->mString, "text");
    EXPECT_EQ(entity.mHeader->mParent, &entity);
    EXPECT_EQ(entity.mBody->mParent, &entity);
}

} // namespace email_body_part_test
