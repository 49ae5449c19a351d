// SPDX-License-Identifier: MIT
#include "utility/EMAIL_DateTime.h"

EMAIL_DateTime::EMAIL_DateTime() : EMAIL_DateTime(QCString(), nullptr) {}

EMAIL_DateTime::EMAIL_DateTime(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_Field(text, parent)
{
}

EMAIL_DateTime::~EMAIL_DateTime() = default;

void EMAIL_DateTime::assemble()
{
    EMAIL_Field::assemble();
}

void EMAIL_DateTime::parse()
{
    EMAIL_Field::parse();
}
