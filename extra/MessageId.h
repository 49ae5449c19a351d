// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"
#include "types/QCString.h"

#include <QList>
#include <QString>

class EMAIL_Header;

namespace tarvomime {

/// A new Message-ID, "<unique@domain>", in the domain of the sender's address. It tells neither the
/// time nor the machine.
TARVOMIME_EXTRA_EXPORT QCString makeMessageId(const QString& senderAddress);

/// The ids in the body of a Message-ID, In-Reply-To or References field, angle brackets included.
/// Phrases and comments between them are passed over.
TARVOMIME_EXTRA_EXPORT QList<QCString> readMessageIds(const QCString& body);

/// What ties an answer to its original (RFC 5322, section 3.6.4), as field bodies; both are empty
/// where the original has no Message-ID.
struct ThreadFields
{
    QCString inReplyTo;
    QCString references;
};

/// References are those of the original, or its In-Reply-To where that is a single id, and its
/// Message-ID behind them. Of more than fifty the first and the last ones stay.
TARVOMIME_EXTRA_EXPORT ThreadFields replyThread(const EMAIL_Header& original);

} // namespace tarvomime
