// SPDX-License-Identifier: MIT
#include "utility/EMAIL_AddrList.h"

EMAIL_AddrList::EMAIL_AddrList() : EMAIL_AddrList(QCString(), nullptr) {}

EMAIL_AddrList::EMAIL_AddrList(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_Field(text, parent)
{
}

EMAIL_AddrList::~EMAIL_AddrList() = default;

void EMAIL_AddrList::assemble()
{
    EMAIL_Field::assemble();
}

void EMAIL_AddrList::parse()
{
    EMAIL_Field::parse();
}

EMAIL_Address::EMAIL_Address() = default;

EMAIL_Address::~EMAIL_Address() = default;
