// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Mailbox.h"

#include <QList>
#include <QStringList>

class EMAIL_Header;

namespace tarvomime {

/// Whom an answer goes to.
enum class ReplyKind {
    /// To whom the original wants answers sent, or to its sender. A Reply-To that only names the
    /// mailing list is the list's doing and does not count: for the list there is `List`.
    Sender,
    /// To all who got the original too.
    All,
    /// To the mailing list that the original came over; as `Sender` where it came over none.
    List
};

struct ReplyPeople
{
    QList<Mailbox> to;
    QList<Mailbox> cc;
};

/// The people that an answer goes to, each once, without those of `ownAddresses`, and without what
/// is no address. The answer to a message of one's own goes to the people that it went to.
TARVOMIME_EXTRA_EXPORT ReplyPeople replyPeople(const EMAIL_Header& original, ReplyKind kind,
                                               const QStringList& ownAddresses);

} // namespace tarvomime
