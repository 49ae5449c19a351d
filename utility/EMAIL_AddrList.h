// SPDX-License-Identifier: MIT
#pragma once

#include "types/QPtrList.h"
#include "types/QValueList.h"
#include "utility/EMAIL_Field.h"

/// One item of an address list: a mailbox or a named group (RFC 5322, section 3.4).
class TARVOMIME_EXPORT EMAIL_Address
{
public:
    EMAIL_Address();
    ~EMAIL_Address();

    /// The bare address (local-part\@domain) of one mailbox text: what stands between the first "<"
    /// and the first ">", untrimmed, a leading quoted display name being skipped. A text without
    /// both comes back as it is (behind the display name); an empty text gives an empty one.
    ///
    /// 1. Only a text that begins with a double quote has a display name to skip, and a quote that
    ///    is never closed skips nothing: better a rough address than none.
    /// 2. A ">" that comes before the "<" closes nothing: the result is all that follows the "<".
    /// 3. A quote behind a backslash never closes, even when that backslash is itself escaped.
    static QCString getRouteAddress(QCString const& text);

    /// 1 for a mailbox, 2 for a group.
    int mAddrType = 1;
    /// The group's display name, as cut from the text and not trimmed; empty for a mailbox.
    QCString mGroupName;
    /// For a mailbox exactly one text, display name and address as written ("John <j@x>"); for a
    /// group its members.
    QValueList<QCString> mAddresses;
};

/// The typed field of To, Cc, Bcc, From, Sender and Reply-To (RFC 5322, section 3.6).
///
/// While `mParsed` is 1 the entries are authoritative and `assemble()` rewrites the body from them.
class TARVOMIME_EXPORT EMAIL_AddrList : public EMAIL_Field
{
public:
    EMAIL_AddrList();
    EMAIL_AddrList(const QCString& text, EMAIL_BaseComponent* parent);

    ~EMAIL_AddrList() override;
    /// Writes one entry per line: the entries are separated by ",", CR LF and one TAB. Mailboxes
    /// with an empty text are left out.
    ///
    /// 1. A group is its name, ": " and its members run together, without the closing ";": the
    ///    members are pieces of one text that kept its own white space, and the last one still
    ///    holds the ";" that was read.
    void assemble() override;
    /// Cuts the body into entries, replacing those of an earlier call. An empty body leaves no
    /// entries and does not touch `mParsed`. Entries share the body's bytes.
    ///
    /// 1. Only "," and ":" cut; quotes, comments and angle brackets protect nothing. So "," inside
    ///    a quoted display name splits it, and ":" starts a group.
    /// 2. A "," that is the body's last character stays in the last mailbox's text.
    /// 3. A group takes all the rest of the body, whatever ";" stands in it: a group is expected to
    ///    be the last entry.
    /// 4. Empty pieces are kept as mailboxes with an empty text.
    /// 5. Of a group's members only the last one is trimmed, and empty ones are dropped.
    void parse() override;

    /// The entries in the order written; owned by the list.
    QPtrList<EMAIL_Address> mAddrList;
};
