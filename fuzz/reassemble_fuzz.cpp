// SPDX-License-Identifier: MIT
// What was assembled parses and assembles again.
//
// That reassembling settles is true of mail, but not of any bytes: a Content-Type without a subtype
// swallows the next line, a boundary of quotes only gains two with each round, and a header whose
// fields are all empty is not written, so that the body's first lines become the header.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_Message.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    QCString text = tarvomime::fuzz::toText(bytes, size);
    for (int round = 0; round < 3; ++round) {
        EMAIL_Message message(text, nullptr);
        message.parse();
        message.assemble();
        text = message.getMessage();
    }
    return 0;
}
