// SPDX-License-Identifier: MIT
// Any text decodes, both forms agree, and what was encoded decodes to itself.

#include "fuzz/support/DecodeBothWays.h"
#include "utility/EMAIL_Util.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    decodeBothWays(toText(bytes, size), [](auto... text) { return EMAIL_Util::decQp(text...); });
    const QByteArray input = toArray(bytes, size);
    for (const int breakLines : {0, 1}) {
        const auto count = static_cast<unsigned long>(size);
        const QByteArray encoded = EMAIL_Util::encQp(input.constData(), count, breakLines);
        unsigned long length = 0;
        const QByteArray decoded = EMAIL_Util::decQp(encoded.constData(), &length);
        // An unfinished last line is ended by the encoder when it breaks lines.
        require(decoded == input || (breakLines && decoded == input + "\r\n"), "a round trip");
    }
    return 0;
}
