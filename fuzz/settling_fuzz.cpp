// SPDX-License-Identifier: MIT
// What was assembled settles: from the second round on, parsing and assembling changes nothing.
//
// It does not settle, for any number of rounds, where
// 1. a Content-Type has no type or no subtype, or a boundary that holds quotes or a folded line;
// 2. a Content-Type is empty: it is not written, and the next one takes its place a round later;
// 3. a header is written as nothing or as three bytes, so that no empty line follows it.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <vector>

using namespace tarvomime::fuzz;

namespace {

bool isOrdinaryType(const EMAIL_ContentType* type)
{
    if (type == nullptr)
        return true;
    for (const char c : toArray(type->mBoundary)) {
        if (c == '"' || c == '\r' || c == '\n')
            return false;
    }
    return !type->mBody.isEmpty() && !type->mType.isEmpty() && !type->mSubType.isEmpty();
}

bool settles(const EMAIL_Entity& message)
{
    std::vector<const EMAIL_Entity*> waiting{&message};
    while (!waiting.empty()) {
        const EMAIL_Entity& entity = *waiting.back();
        waiting.pop_back();
        const QCString& header = entity.mHeader->getMessage();
        if (!isOrdinaryType(entity.mHeader->getContentType()) || header.length() <= 3)
            return false;
        for (int i = 0; i < entity.mBody->numBodyParts(); ++i)
            waiting.push_back(entity.mBody->bodyPart(i));
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    QCString text = toText(bytes, size);
    QCString last;
    bool ordinary = true;
    for (int round = 0; round < 3; ++round) {
        EMAIL_Message message(text, nullptr);
        message.parse();
        message.assemble();
        ordinary = ordinary && settles(message);
        last = text;
        text = message.getMessage();
    }
    require(!ordinary || text == last, "the third round changes nothing");
    return 0;
}
