// SPDX-License-Identifier: MIT
// Any text parses as Content-Type and as Content-Disposition, and can be changed and written.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DispositionType.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    EMAIL_ContentType type;
    type.mName = "Content-Type";
    type.mBody = toText(bytes, size);
    type.parse();
    type.getCharset();
    type.getMethod();
    QCString value;
    type.getName(value);
    type.getStart(value);
    type.createBoundary();
    type.assemble();

    EMAIL_DispositionType disposition;
    disposition.mName = "Content-Disposition";
    disposition.mBody = toText(bytes, size);
    disposition.parse();
    disposition.assemble();
    return 0;
}
