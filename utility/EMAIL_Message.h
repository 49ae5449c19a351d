// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Entity.h"

/// A whole message: the top of a component tree, or a message enclosed in another one.
class TARVOMIME_EXPORT EMAIL_Message : public EMAIL_Entity
{
public:
    EMAIL_Message();
    EMAIL_Message(const QCString& text, EMAIL_BaseComponent* parent);
    ~EMAIL_Message() override;
};
