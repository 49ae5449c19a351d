// SPDX-License-Identifier: MIT
// Any text decodes, both forms agree, and what was encoded decodes to itself.

#include "fuzz/support/DecodeBothWays.h"
#include "utility/EMAIL_Util.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    decodeBothWays(toText(bytes, size), [](auto... text) { return EMAIL_Util::decB64(text...); });
    const QByteArray input = toArray(bytes, size);
    for (const int breakLines : {0, 1}) {
        const auto count = static_cast<unsigned long>(size);
        const QByteArray encoded = EMAIL_Util::encB64(input.constData(), count, breakLines);
        unsigned long length = 0;
        require(EMAIL_Util::decB64(encoded.constData(), &length) == input, "a round trip");
    }
    return 0;
}
