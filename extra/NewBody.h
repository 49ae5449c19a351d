// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"
#include "utility/EMAIL_MultiPart.h"

#include <QList>
#include <QString>

class EMAIL_MIME;

namespace tarvomime {

/// What a new message is to hold.
struct NewBody
{
    /// Plain text with lines that end in "\n"; made of the HTML where it is null.
    QString text;
    /// The same as HTML; null for none.
    QString html;
    /// For texts that are not plain ASCII; UTF-8 takes its place where it cannot hold them.
    int charset = CHARSET_UTF_8;
    /// What the HTML refers to as "cid:NAME", each with its `setID("<NAME>")`.
    QList<EMAIL_MultiPart> inlineParts;
    /// Further forms of the text, such as an invitation (`EMAIL_MIME::getIcsPart`).
    QList<EMAIL_MultiPart> alternatives;
    QList<EMAIL_MultiPart> attachments;

    bool hasAlternatives() const { return !html.isNull() || !alternatives.isEmpty(); }
};

/// Gives a new message its default fields, its type and its body, no deeper than the parts need:
/// text alone, text and HTML as alternatives, the HTML with what it refers to (RFC 2387), and all
/// that in front of the attachments. Plain text flows (RFC 3676), and every text is written by
/// `transferText`.
///
/// Call `makeBoundariesUnique` before the message is assembled where attachments come from others.
TARVOMIME_EXTRA_EXPORT void setNewBody(const NewBody& body, EMAIL_MIME& message);

} // namespace tarvomime
