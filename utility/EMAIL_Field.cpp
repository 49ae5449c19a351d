// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Field.h"

#include "utility/text/Joined.h"

EMAIL_Field::EMAIL_Field() = default;

EMAIL_Field::EMAIL_Field(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_BaseComponent(text, parent)
{
}

EMAIL_Field::~EMAIL_Field() = default;

void EMAIL_Field::assemble()
{
    mString = QCString::fromLiteral("");
    if (mBody.isEmpty())
        return;
    mString = tarvomime::joined({mName.view(), ": ", mBody.view(), "\r\n"});
}

void EMAIL_Field::parse()
{
    mParsed = 1;
}
