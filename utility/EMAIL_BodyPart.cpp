// SPDX-License-Identifier: MIT
#include "utility/EMAIL_BodyPart.h"

EMAIL_BodyPart::EMAIL_BodyPart() = default;

EMAIL_BodyPart::EMAIL_BodyPart(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_Entity(text, parent)
{
}

EMAIL_BodyPart::~EMAIL_BodyPart() = default;
