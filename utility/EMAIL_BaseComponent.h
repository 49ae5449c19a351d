// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "types/TarvomimeExport.h"

/// The root of the message component tree: a piece of raw text and the component that contains it.
///
/// Every component turns its text into structure (`parse`) and its structure back into text
/// (`assemble`). Parsing runs downwards, once; assembling is pulled from the top and is always
/// complete. Nothing propagates upwards: after a change below, the text of an ancestor is stale
/// until that ancestor is assembled again.
class TARVOMIME_EXPORT EMAIL_BaseComponent
{
public:
    EMAIL_BaseComponent();
    EMAIL_BaseComponent(const QCString& text, EMAIL_BaseComponent* parent);
    EMAIL_BaseComponent(const EMAIL_BaseComponent&) = delete;
    EMAIL_BaseComponent& operator=(const EMAIL_BaseComponent&) = delete;

    virtual ~EMAIL_BaseComponent();
    /// Rebuilds `mString` from the children or fields.
    virtual void assemble() = 0;
    /// Rebuilds the children or fields from `mString`.
    virtual void parse() = 0;
    /// Replaces the text by `text`; the bytes are shared, nothing is parsed.
    virtual void setMessage(const QCString& text);

    /// The text that was last parsed, assembled or set.
    const QCString& getMessage() const { return mString; }
    /// Sets the containing component, which stays the owner of itself.
    void setParent(EMAIL_BaseComponent* parent) { mParent = parent; }

    /// The raw text: what was parsed, or what was freshly assembled.
    QCString mString;
    /// The containing component, not owned; null at the top.
    EMAIL_BaseComponent* mParent = nullptr;
};
