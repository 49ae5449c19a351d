// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_BaseComponent.h"

/// One header field (RFC 5322, section 2.2), and the base of the typed fields.
///
/// `mString` holds the raw line after the header was parsed and the written line after
/// `assemble()`; `mParent` is the owning header. Values are stored and written as they are: quoting
/// and encoding belong to the message API.
class TARVOMIME_EXPORT EMAIL_Field : public EMAIL_BaseComponent
{
public:
    EMAIL_Field();
    EMAIL_Field(const QCString& text, EMAIL_BaseComponent* parent);

    ~EMAIL_Field() override;
    /// Builds the line "Name: body" and CR LF in `mString`; a field with an empty body gives an
    /// empty text, and so disappears from the header. Nothing is folded here: a fold inside the
    /// body is written back as it stands. Typed fields first rebuild `mBody` from their members. A
    /// line that would be too long gives an empty text, and the assembly of the header fails.
    void assemble() override;
    /// Marks the field as parsed; typed fields first read their members from `mBody`.
    void parse() override;

    /// 1 once the field was parsed; 2 for a typed field that keeps the text that it was read from,
    /// because it would be too long to write. The header's typed getters parse a field only while
    /// it is 0.
    int mParsed = 0;
    /// The name as it will be written.
    QCString mName;
    /// The text behind the ":" of the line.
    QCString mBody;
};
