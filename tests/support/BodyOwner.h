// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

/// A message whose body is the one under test. Its header says nothing but the body's type, and not
/// even that where `type` is null.
struct BodyOwner : EMAIL_Message
{
    explicit BodyOwner(const char* type)
    {
        if (type != nullptr)
            mHeader->contentType()->mBody = type;
    }
};
