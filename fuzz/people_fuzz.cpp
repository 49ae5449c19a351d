// SPDX-License-Identifier: MIT
// Any text is a list of people; those that can be written are read back as they went in.

#include "extra/AddressList.h"
#include "fuzz/support/Fuzz.h"

using namespace tarvomime;
using namespace tarvomime::fuzz;

namespace {

// What survives: blanks between words are one, and a group with members is written as its members.
QList<Mailbox> addressesOf(const QList<Mailbox>& people)
{
    QList<Mailbox> addresses;
    for (Mailbox mailbox : people) {
        if (!mailbox.isAddress())
            continue;
        mailbox.group = QString();
        mailbox.name = mailbox.name.simplified();
        addresses.append(mailbox);
    }
    return addresses;
}

void requireSamePeople(const QList<Mailbox>& one, const QList<Mailbox>& other)
{
    require(one.size() == other.size(), "nobody is lost or invented");
    for (int i = 0; i < one.size(); ++i) {
        require(one[i].address == other[i].address, "an address is the same again");
        require(one[i].name == other[i].name.simplified(), "a name is the same again");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const QList<Mailbox> people = readAddressList(toText(bytes, size));
    for (const Mailbox& mailbox : people)
        require(!mailbox.isAddress() || addressProblem(mailbox.address).isEmpty(),
                "what is called an address is one");
    readTypedAddressList(QString::fromUtf8(toArray(bytes, size)));

    const QList<Mailbox> addresses = addressesOf(people);
    const Result<QString> written = writeAddressList(addresses);
    if (written)
        requireSamePeople(addresses, readAddressList(QCString(written->toUtf8())));
    return 0;
}
