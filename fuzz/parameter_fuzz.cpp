// SPDX-License-Identifier: MIT
// Any field body has parameters and encoded words that decode to about its length at most, and a
// name that is safe.

#include "extra/AttachmentName.h"
#include "extra/EncodedWords.h"
#include "extra/FieldParameter.h"
#include "extra/SafeFileName.h"
#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_Header.h"

using namespace tarvomime;
using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const QCString body = toText(bytes, size);
    const QString value = fieldParameter(body, "filename");
    require(value.size() <= body.length() + 16, "a value is no longer than its field");
    require(decodedWords(body).size() <= body.length() + 16, "neither are words");

    EMAIL_Header header("Content-Disposition: " + body, nullptr);
    header.parse();
    const QString name = safeFileName(attachmentName(header));
    require(!name.isEmpty() && !name.contains('/') && !name.startsWith('.'), "the name is safe");
    return 0;
}
