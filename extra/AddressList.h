// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Mailbox.h"
#include "extra/Result.h"
#include "types/QCString.h"

#include <QByteArray>
#include <QList>

class EMAIL_Header;

namespace tarvomime {

/// The people in the body of an address field, From to Bcc (RFC 5322 with its obsolete forms).
///
/// 1. Quotes, comments, groups, routes and domain literals are known; "," and ":" inside them cut
///    nothing. Groups end at ";", and ";" between mailboxes is taken for ",".
/// 2. A comment is the name where there is no other: "j@a.example (Jörg)".
/// 3. Names are decoded by `decodedWords`, in quotes too.
/// 4. Nothing is dropped: a text that is no address stands in `Mailbox::address` with the reason
///    beside it, and a group that nobody stands in is an entry of its own.
/// 5. A quote, comment or bracket that is never closed is an ordinary character; a missing ">" ends
///    the address at the next ",".
/// 6. A "," that was forgotten behind "<address>", or between bare addresses, is there.
TARVOMIME_EXTRA_EXPORT QList<Mailbox>
readAddressList(const QCString& body, const QByteArray& fallbackCharset = "windows-1252");

/// The people in all fields of this name ("To"), in their order.
TARVOMIME_EXTRA_EXPORT QList<Mailbox>
readAddressList(const EMAIL_Header& header, const QCString& fieldName,
                const QByteArray& fallbackCharset = "windows-1252");

/// The same for what a person typed or `mailboxText` showed.
TARVOMIME_EXTRA_EXPORT QList<Mailbox> readTypedAddressList(const QString& text);

/// A value for the library's setters (setFrom, setTo, setCc, setBcc, setReplyTo, setSender), which
/// cut at every "," and ":" whatever stands around it: all names but plain words become encoded
/// words, so that every reader finds the same people as went in. It is plain ASCII, except for an
/// address that is not.
///
/// Members of groups are written one by one, because a group with members would not survive the
/// cutting; an empty group is written only when it stands alone. Fails for what is no address, and
/// for the rare address that itself holds ",", ":" or "=?".
TARVOMIME_EXTRA_EXPORT Result<QString> writeAddressList(const QList<Mailbox>& mailboxes);

} // namespace tarvomime
