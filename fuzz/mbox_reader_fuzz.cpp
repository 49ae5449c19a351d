// SPDX-License-Identifier: MIT
// Any bytes are cut into messages that follow each other, with and without believing lengths.

#include "extra/MboxReader.h"
#include "fuzz/support/Fuzz.h"

#include <QBuffer>

using namespace tarvomime::fuzz;

namespace {

void cut(QByteArray bytes, bool believeLengths)
{
    QBuffer device(&bytes);
    require(device.open(QIODevice::ReadOnly), "a buffer opens");
    tarvomime::MboxReader reader(device, believeLengths);
    tarvomime::MboxMessage message;
    qint64 end = 0;
    while (reader.next(message)) {
        require(message.offset >= end && message.length >= 0, "messages follow each other");
        end = message.offset + message.length;
        require(end <= bytes.size(), "messages lie inside the mbox");
        tarvomime::unquotedMboxMessage(bytes.mid(int(message.offset), int(message.length)),
                                       tarvomime::MboxQuoting::QuotedFromLines);
    }
    require(reader.problem().isEmpty(), "a buffer can be read");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    cut(toArray(bytes, size), false);
    cut(toArray(bytes, size), true);
    return 0;
}
