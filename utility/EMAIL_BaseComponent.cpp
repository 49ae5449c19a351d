// SPDX-License-Identifier: MIT
#include "utility/EMAIL_BaseComponent.h"

EMAIL_BaseComponent::EMAIL_BaseComponent() = default;

EMAIL_BaseComponent::EMAIL_BaseComponent(const QCString& text, EMAIL_BaseComponent* parent)
    : mString(text), mParent(parent)
{
}

EMAIL_BaseComponent::~EMAIL_BaseComponent() = default;

void EMAIL_BaseComponent::setMessage(const QCString& text)
{
    mString = text;
}
