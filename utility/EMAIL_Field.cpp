// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Field.h"

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
    QByteArray line;
    line.reserve(mName.length() + 2 + mBody.length() + 2);
    line.append(mName.begin(), mName.length()).append(": ", 2);
    line.append(mBody.begin(), mBody.length()).append("\r\n", 2);
    mString = QCString::fromBytes(line);
}

void EMAIL_Field::parse()
{
    mParsed = 1;
}
