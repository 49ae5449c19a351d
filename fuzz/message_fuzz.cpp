// SPDX-License-Identifier: MIT
// Any message parses in memory and in a file, and its typed fields can be read.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_Util.h"

#include <sys/mman.h>

using namespace tarvomime::fuzz;

namespace {

void readHeader(const EMAIL_Header& header)
{
    header.getFrom();
    header.getTo();
    header.getDate();
    header.getContentType();
    header.getContentDisposition();
    header.getSubject();
    header.getCte();
    header.getAttSize();
    header.getBodyTruncated();
    header.getSmartSendType();
}

void readTree(const EMAIL_Entity& entity)
{
    readHeader(*entity.mHeader);
    QCString text;
    entity.mBody->getBodyText(text);
    for (int i = 0; i < entity.mBody->numBodyParts(); ++i)
        readTree(*entity.mBody->bodyPart(i));
    if (entity.mBody->mMessage)
        readTree(*entity.mBody->mMessage);
}

void parseFile(ScratchFile& input)
{
    FILE* stream = nullptr;
    char* data = nullptr;
    int length = 0;
    if (EMAIL_Util::openBuffer(input.path(), stream, data, length) != 0)
        return;
    EMAIL_Message message;
    message.parse(data, 0, length, input.path());
    munmap(data, static_cast<size_t>(length));
    std::fclose(stream);
    readTree(message);
    ScratchFile output;
    require(message.assemble(output.file()) == 0, "the parsed file can be written");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    EMAIL_Message message(toText(bytes, size), nullptr);
    message.parse();
    readTree(message);

    ScratchFile file;
    file.write(bytes, size);
    parseFile(file);
    return 0;
}
