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

    /// The bare address (local-part@domain) of one mailbox text: what stands between the first "<"
    /// and the first ">", a leading quoted display name being skipped. A text without both comes
    /// back as it is.
    static QCString getRouteAddress(QCString const& text);

    /// 1 for a mailbox, 2 for a group.
    int mAddrType = 1;
    /// The group's display name, as cut from the text; empty for a mailbox.
    QCString mGroupName;
    /// For a mailbox exactly one text, display name and address as written; for a group its
    /// members.
    QValueList<QCString> mAddresses;
};

/// The typed field of To, Cc, Bcc, From, Sender and Reply-To.
class TARVOMIME_EXPORT EMAIL_AddrList : public EMAIL_Field
{
public:
    EMAIL_AddrList();
    EMAIL_AddrList(const QCString& text, EMAIL_BaseComponent* parent);

    ~EMAIL_AddrList() override;
    void assemble() override;
    void parse() override;

    /// The entries in the order written; owned.
    QPtrList<EMAIL_Address> mAddrList;
};
