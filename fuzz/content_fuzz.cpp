// SPDX-License-Identifier: MIT
// Any message has a content, whose parts can be read, in memory and in a file alike.

#include "extra/MessageContent.h"
#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

using namespace tarvomime::fuzz;

namespace {

void readAll(const EMAIL_MIME& message)
{
    const tarvomime::MessageContent content = tarvomime::readContent(*message.mMessage);
    for (int i = 0; i < content.messages.size(); ++i) {
        require(bool(tarvomime::shownText(content, i)), "its text can be read");
        require(bool(tarvomime::shownHtml(content, i)), "its HTML can be read");
    }
    for (int i = 0; i < content.parts.size(); ++i) {
        require(content.parts[i].parent < i, "a part follows the one that holds it");
        tarvomime::partNumber(content, i);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    readAll(EMAIL_MIME(toArray(bytes, size)));

    ScratchFile file;
    file.write(bytes, size);
    EMAIL_MIME message;
    if (message.parse(file.path()) == 0)
        readAll(message);
    return 0;
}
