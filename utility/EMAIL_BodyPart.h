// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Entity.h"

/// One part of a multipart body (RFC 2046, section 5.1).
class TARVOMIME_EXPORT EMAIL_BodyPart : public EMAIL_Entity
{
public:
    EMAIL_BodyPart();
    EMAIL_BodyPart(const QCString& text, EMAIL_BaseComponent* parent);
    ~EMAIL_BodyPart() override;
};
