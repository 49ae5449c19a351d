// SPDX-License-Identifier: MIT
// Any bytes decode from any charset, and the result can be encoded again.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_Util.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    if (size == 0)
        return 0;
    const int charset = bytes[0] % (CHARSET_ISO_8859_15 + 2);
    const QByteArray input = toArray(bytes + 1, size - 1);
    QString decoded;
    EMAIL_Util::decFromCharset(input, decoded, charset);
    QCString encoded;
    EMAIL_Util::encWithCharset(encoded, decoded, charset);
    QString utf7;
    EMAIL_Util::UTF7ToUCS2(input.constData(), static_cast<unsigned int>(input.size()), utf7);
    EMAIL_Util::canEncodeByCharset(decoded, charset);
    return 0;
}
