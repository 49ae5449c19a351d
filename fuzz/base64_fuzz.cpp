// SPDX-License-Identifier: MIT
// Any text decodes, both forms agree, and what was encoded decodes to itself.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_Util.h"

using namespace tarvomime::fuzz;

namespace {

void decodeBothWays(const QCString& text)
{
    unsigned long length = 0;
    const QByteArray decoded = EMAIL_Util::decB64(text.data(), &length);
    require(static_cast<unsigned long>(decoded.size()) == length, "the length is the result's");
    ScratchFile file;
    require(EMAIL_Util::decB64(text.begin(), text.length(), file.file()) == 0,
            "the file is written");
    require(file.content() == decoded, "file and memory hold the same bytes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    decodeBothWays(toText(bytes, size));
    const QByteArray input = toArray(bytes, size);
    for (const int breakLines : {0, 1}) {
        const auto count = static_cast<unsigned long>(size);
        const QByteArray encoded = EMAIL_Util::encB64(input.constData(), count, breakLines);
        unsigned long length = 0;
        require(EMAIL_Util::decB64(encoded.constData(), &length) == input, "a round trip");
    }
    return 0;
}
