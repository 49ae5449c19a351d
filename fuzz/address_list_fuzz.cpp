// SPDX-License-Identifier: MIT
// Any text parses as an address list; the list can be written and read again.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_AddrList.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    EMAIL_AddrList list;
    list.mName = "To";
    list.mBody = toText(bytes, size);
    list.parse();
    for (const EMAIL_Address* address : list.mAddrList) {
        for (const QCString& text : address->mAddresses)
            EMAIL_Address::getRouteAddress(text);
    }
    list.assemble();
    list.parse();
    return 0;
}
