// SPDX-License-Identifier: MIT
#include "utility/EMAIL_BaseComponent.h"

namespace email_base_component_test {

namespace {

struct Component : EMAIL_BaseComponent
{
    using EMAIL_BaseComponent::EMAIL_BaseComponent;
    void assemble() override {}
    void parse() override {}
};

} // namespace

TEST(EMAIL_BaseComponent, BeginsWithoutTextAndParent)
{
    const Component component;
    EXPECT_TRUE(component.mString.isEmpty());
    EXPECT_EQ(component.mParent, nullptr);
}

TEST(EMAIL_BaseComponent, TakesTextAndParent)
{
    Component parent;
    const Component child("text", &parent);
    EXPECT_EQ(child.getMessage(), "text");
    EXPECT_EQ(child.mParent, &parent);
}

TEST(EMAIL_BaseComponent, SharesTheTextItIsGiven)
{
    const QCString text("shared");
    Component component;
    component.setMessage(text);
    EXPECT_EQ(component.mString.begin(), text.begin());
    EXPECT_EQ(&component.getMessage(), &component.mString);
}

TEST(EMAIL_BaseComponent, LeavesItsParentAlive)
{
    Component parent;
    {
        Component child;
        child.setParent(&parent);
        EXPECT_EQ(child.mParent, &parent);
    }
    parent.setMessage("alive");
    EXPECT_EQ(parent.mString, "alive");
}

} // namespace email_base_component_test
