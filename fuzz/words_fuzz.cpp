// SPDX-License-Identifier: MIT
// Any text decodes, and what was decoded encodes again.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_Util.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const QCString text = toText(bytes, size);
    QString decoded;
    EMAIL_Util::decode_2047_String(text, decoded, CHARSET_UTF_8);
    QString word;
    EMAIL_Util::decode_2047_String_Aux(text, word, CHARSET_UTF_8);

    QCString subject;
    EMAIL_Util::encode_2047_String(decoded, CHARSET_UTF_8, subject);
    QCString addresses;
    EMAIL_Util::encode_2047_Address(decoded, CHARSET_UTF_8, addresses);
    return 0;
}
