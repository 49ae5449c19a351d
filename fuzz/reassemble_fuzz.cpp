// SPDX-License-Identifier: MIT
// Reassembling settles: the second and the third output are equal.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_Message.h"

using namespace tarvomime::fuzz;

namespace {

QCString reassembled(const QCString& text)
{
    EMAIL_Message message(text, nullptr);
    message.parse();
    message.assemble();
    return message.getMessage();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const QCString second = reassembled(reassembled(toText(bytes, size)));
    require(reassembled(second) == second, "the third output is the second");
    return 0;
}
