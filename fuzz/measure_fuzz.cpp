// SPDX-License-Identifier: MIT
// Parsing makes no more parts of any bytes than are counted before.

#include "extra/MessageContent.h"
#include "extra/MessageMeasure.h"
#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    // Parsing ends at a NUL, counting does not.
    const QByteArray input = toArray(toText(bytes, size));
    const EMAIL_MIME message(input);
    const tarvomime::MessageMeasure measure = tarvomime::measureMessage(input);
    require(tarvomime::readContent(*message.mMessage).parts.size() <= measure.parts,
            "no part was overlooked");
    return 0;
}
