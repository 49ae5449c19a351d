// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Message.h"

EMAIL_Message::EMAIL_Message() = default;

EMAIL_Message::EMAIL_Message(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_Entity(text, parent)
{
}

EMAIL_Message::~EMAIL_Message() = default;
