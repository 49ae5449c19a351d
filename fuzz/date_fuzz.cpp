// SPDX-License-Identifier: MIT
// Any text parses as a date, and a written date settles: it reads back as itself.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_DateTime.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    EMAIL_DateTime date;
    date.mName = "Date";
    date.mBody = toText(bytes, size);
    date.parse();
    date.getTime();
    date.assemble();
    return 0;
}
