// SPDX-License-Identifier: MIT
// Any bytes have findings, each about a piece of them.

#include "extra/MessageFindings.h"
#include "fuzz/support/Fuzz.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const QByteArray message = toArray(bytes, size);
    for (const tarvomime::MessageFinding& finding : tarvomime::messageFindings(message)) {
        require(finding.offset >= 0 && finding.length >= 0, "a place is not negative");
        require(finding.offset + finding.length <= message.size(), "it lies in the message");
        require(!finding.text.isEmpty(), "a finding is explained");
        require(finding.text.size() <= 500, "it repeats little of the message");
    }
    return 0;
}
