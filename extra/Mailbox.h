// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"

#include <QString>

namespace tarvomime {

/// One entry of an address list.
struct Mailbox
{
    /// The display name for people, decoded; empty when there is none.
    QString name;
    /// "local@domain", without comments, folds and route. Where the text is no address, what stands
    /// in its place.
    QString address;
    /// The name of the group that it stands in; null outside groups.
    QString group;
    /// Why `address` is none, as a sentence for a person; empty where it is one.
    QString problem;

    bool isAddress() const { return problem.isEmpty() && !address.isEmpty(); }
    /// "undisclosed-recipients:;" is a group that nobody stands in.
    bool isEmptyGroup() const { return !group.isNull() && address.isEmpty() && name.isEmpty(); }
};

/// Why a text is no address ("local@domain" of RFC 5322, letters of all scripts allowed); empty
/// where it is one.
TARVOMIME_EXTRA_EXPORT QString addressProblem(const QString& address);

/// Whether mail to both goes to the same place: letters' case does not count. It does in front of
/// the "@" by the letter of the standards, but not where mail is delivered.
TARVOMIME_EXTRA_EXPORT bool isSameAddress(const QString& one, const QString& other);

/// `Jörg Müller <j@a.example>`, or `"Müller, Jörg" <j@a.example>` where the name needs quotes: to
/// show, and to read again when a person has edited it. For a header there is `writeAddressList`.
TARVOMIME_EXTRA_EXPORT QString mailboxText(const Mailbox& mailbox);

} // namespace tarvomime
