// SPDX-License-Identifier: MIT
// A message in a file is the message in memory: the same tree, the same parts, the same bodies.
//
// 1. A text in memory ends at a NUL, so the file ends there too.
// 2. Only in memory is an enclosed message parsed, and only there does it keep its outer line
//    breaks: of a message-type body the text between them is compared.

#include "fuzz/support/Tree.h"
#include "tests/support/TreePrinter.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

using namespace tarvomime::fuzz;

namespace {

bool requireSamePart(const EMAIL_MultiPart& one, const EMAIL_MultiPart& other)
{
    require(one.getTypeStr() == other.getTypeStr(), "one type");
    require(one.getSubTypeStr() == other.getSubTypeStr(), "one subtype");
    require(one.getCTE() == other.getCTE() && one.getCharset() == other.getCharset(), "one coding");
    require(one.getName() == other.getName(), "one name");
    require(one.getDispFileName() == other.getDispFileName(), "one file name");
    require(one.getDispType() == other.getDispType(), "one disposition");
    require(one.getType() == typeMessage || bodyOf(one) == bodyOf(other), "one body");
    return true;
}

void requireSameMessage(const EMAIL_MIME& inMemory, const EMAIL_MIME& inFile)
{
    require(inMemory.getMultiPartCount() == inFile.getMultiPartCount(), "one number of parts");
    require(inMemory.getAttachNum() == inFile.getAttachNum(), "one number of attachments");
    for (int i = 0; i < inMemory.getMultiPartCount(); ++i) {
        EMAIL_MultiPart one;
        EMAIL_MultiPart other;
        require(inMemory.getMultiPart(i, one) && inFile.getMultiPart(i, other), "a part is read");
        comparePairs(one, other, requireSamePart);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const QByteArray text = toArray(toText(bytes, size));
    if (text.isEmpty())
        return 0;
    ScratchFile file;
    file.write(reinterpret_cast<const uint8_t*>(text.constData()),
               static_cast<size_t>(text.size()));
    const EMAIL_MIME inMemory(text);
    EMAIL_MIME inFile;
    require(inFile.parse(file.path()) == 0, "the file is parsed");
    require(printTree(*inMemory.mMessage, EnclosedMessages::AsText) ==
                printTree(*inFile.mMessage, EnclosedMessages::AsText, text),
            "one tree");
    requireSameMessage(inMemory, inFile);
    return 0;
}
