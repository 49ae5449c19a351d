// SPDX-License-Identifier: MIT
#include "utility/EMAIL_ContentType.h"

EMAIL_ContentType::EMAIL_ContentType() : EMAIL_ContentType(QCString(), nullptr) {}

EMAIL_ContentType::EMAIL_ContentType(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_Field(text, parent)
{
}

EMAIL_ContentType::~EMAIL_ContentType() = default;

void EMAIL_ContentType::assemble()
{
    EMAIL_Field::assemble();
}

void EMAIL_ContentType::parse()
{
    EMAIL_Field::parse();
}
