// SPDX-License-Identifier: MIT
#include "utility/EMAIL_DispositionType.h"

EMAIL_DispositionType::EMAIL_DispositionType() : EMAIL_DispositionType(QCString(), nullptr) {}

EMAIL_DispositionType::EMAIL_DispositionType(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_Field(text, parent)
{
}

EMAIL_DispositionType::~EMAIL_DispositionType() = default;

void EMAIL_DispositionType::assemble()
{
    EMAIL_Field::assemble();
}

void EMAIL_DispositionType::parse()
{
    EMAIL_Field::parse();
}
