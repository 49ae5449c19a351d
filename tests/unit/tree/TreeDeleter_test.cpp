// SPDX-License-Identifier: MIT
#include "utility/tree/TreeDeleter.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Message.h"

#include <gmock/gmock.h>
#include <memory>
#include <vector>

namespace tree_deleter_test {

namespace {

// Notes its number when it is deleted.
struct NotingPart : EMAIL_BodyPart
{
    NotingPart(int number, std::vector<int>& deleted) : mNumber(number), mDeleted(deleted) {}
    ~NotingPart() override { mDeleted.push_back(mNumber); }

    int mNumber;
    std::vector<int>& mDeleted;
};

} // namespace

TEST(TreeDeleter, DeletesEverythingBelowABody)
{
    std::vector<int> deleted;
    EMAIL_Body body;
    auto* outer = new NotingPart(1, deleted);
    body.insertBodyPart(outer, -1);
    outer->mBody->insertBodyPart(new NotingPart(2, deleted), -1);
    outer->mBody->insertBodyPart(new NotingPart(3, deleted), -1);
    body.mMessage = new EMAIL_Message;
    body.mMessage->mBody->insertBodyPart(new NotingPart(4, deleted), -1);

    tarvomime::deleteChildren(body);

    EXPECT_EQ(body.numBodyParts(), 0);
    EXPECT_EQ(body.mMessage, nullptr);
    EXPECT_THAT(deleted, testing::UnorderedElementsAre(1, 2, 3, 4));
}

TEST(TreeDeleter, LeavesPartsThatTheListDoesNotOwn)
{
    std::vector<int> deleted;
    auto part = std::make_unique<NotingPart>(1, deleted);
    {
        EMAIL_Body body;
        body.mBodyParts.setAutoDelete(false);
        body.insertBodyPart(part.get(), -1);
        tarvomime::deleteChildren(body);
    }
    EXPECT_TRUE(deleted.empty());
}

TEST(TreeDeleter, PassesOverNullsAndLostBodies)
{
    std::vector<int> deleted;
    EMAIL_Body body;
    auto* part = new NotingPart(1, deleted);
    delete std::exchange(part->mBody, nullptr);
    body.mBodyParts.append(nullptr);
    body.mBodyParts.append(part);
    tarvomime::deleteChildren(body);
    EXPECT_THAT(deleted, testing::ElementsAre(1));
}

} // namespace tree_deleter_test
