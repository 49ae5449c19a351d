// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Message.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"

namespace email_message_test {

TEST(EMAIL_Message, BeginsWithAnEmptyHeaderAndBody)
{
    const EMAIL_Message entity;
    ASSERT_NE(entity.mHeader, nullptr);
    ASSERT_NE(entity.mBody, nullptr);
    EXPECT_EQ(entity.mHeader->mFields.count(), 0);
    EXPECT_EQ(entity.mParent, nullptr);
}

TEST(EMAIL_Message, IsAnEntityOverItsText)
{
    EMAIL_Body parent;
    EMAIL_Message entity("Subject: Hi\r\n\r\ntext", &parent);
    EXPECT_EQ(entity.mParent, &parent);
    entity.parse();
    EXPECT_EQ(entity.mHeader->getSubject(), "Hi");
    EXPECT_EQ(entity.mBody->mString, "text");
    EXPECT_EQ(entity.mHeader->mParent, &entity);
    EXPECT_EQ(entity.mBody->mParent, &entity);
}

} // namespace email_message_test
