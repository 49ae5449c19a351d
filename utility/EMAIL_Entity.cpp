// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Entity.h"

#include "types/AllocationCheck.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"
#include "utility/text/Joined.h"
#include "utility/tree/TreeAssembler.h"
#include "utility/tree/TreeParser.h"

#include <new>

EMAIL_Entity::EMAIL_Entity()
{
    mHeader = new (std::nothrow) EMAIL_Header(QCString(), this);
    TARVOMIME_CHECK_ALLOCATION(mHeader, "mHeader", "utility/EMAIL_Entity.cpp",
                               "EMAIL_Entity::EMAIL_Entity()");
    mBody = new (std::nothrow) EMAIL_Body(QCString(), this);
    TARVOMIME_CHECK_ALLOCATION(mBody, "mBody", "utility/EMAIL_Entity.cpp",
                               "EMAIL_Entity::EMAIL_Entity()");
}

EMAIL_Entity::EMAIL_Entity(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_BaseComponent(text, parent)
{
    mHeader = new (std::nothrow) EMAIL_Header(QCString(), this);
    TARVOMIME_CHECK_ALLOCATION(mHeader, "mHeader", "utility/EMAIL_Entity.cpp",
                               "EMAIL_Entity::EMAIL_Entity(const QCString&, EMAIL_BaseComponent*)");
    mBody = new (std::nothrow) EMAIL_Body(QCString(), this);
    TARVOMIME_CHECK_ALLOCATION(mBody, "mBody", "utility/EMAIL_Entity.cpp",
                               "EMAIL_Entity::EMAIL_Entity(const QCString&, EMAIL_BaseComponent*)");
}

EMAIL_Entity::~EMAIL_Entity()
{
    delete mHeader;
    mHeader = nullptr;
    delete mBody;
    mBody = nullptr;
}

void EMAIL_Entity::assemble()
{
    if (assemble(nullptr) != 0)
        mString = tarvomime::refusedText();
}

void EMAIL_Entity::parse()
{
    parse(mString.begin(), 0, mString.length(), QString());
}

void EMAIL_Entity::parse(const char* data, int start, int length, const QString& path)
{
    tarvomime::parseEntity(*this, data, start, length, path);
}

int EMAIL_Entity::assemble(QFile* file)
{
    return tarvomime::assembleEntity(*this, file);
}
