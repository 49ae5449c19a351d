// SPDX-License-Identifier: MIT
// A part that is read from a message and added to another one is the same part there, and what was
// composed so can be written and read.
//
// 1. A part without a type or a subtype is written without a Content-Type and reads as text/plain,
//    without sub-parts.
// 2. A charset that the library does not know is written as us-ascii.
// 3. Names are compared where they need neither quotes nor encoded words.

#include "fuzz/support/Tree.h"
#include "utility/EMAIL_MIME.h"

using namespace tarvomime::fuzz;

namespace {

bool isPlainName(const QString& name)
{
    for (const QChar c : name) {
        if (c < ' ' || c > '~' || c == '"' || c == '=')
            return false;
    }
    return !name.isEmpty();
}

void requireSameNames(const EMAIL_MultiPart& one, const EMAIL_MultiPart& other)
{
    if (isPlainName(one.getName()))
        require(one.getName() == other.getName(), "one name");
    if (!isPlainName(one.getDispFileName()))
        return;
    require(one.getDispFileName() == other.getDispFileName(), "one file name");
    require(one.getDispType() == other.getDispType(), "one disposition");
}

bool requireSamePart(const EMAIL_MultiPart& one, const EMAIL_MultiPart& other)
{
    if (one.getTypeStr().isEmpty() || one.getSubTypeStr().isEmpty())
        return false;
    require(one.getTypeStr() == other.getTypeStr(), "one type");
    require(one.getSubTypeStr() == other.getSubTypeStr(), "one subtype");
    require(one.getCTE() == other.getCTE(), "one transfer encoding");
    require(qMax(one.getCharset(), 1) == other.getCharset(), "one charset");
    require(one.getID() == other.getID() && one.getPartID() == other.getPartID(), "one id");
    require(one.getLocation() == other.getLocation(), "one location");
    require(one.getDescription() == other.getDescription(), "one description");
    require(one.isAttDownloaded() == other.isAttDownloaded(), "one download state");
    require(one.mBodyData == other.mBodyData, "one body");
    requireSameNames(one, other);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const EMAIL_MIME message(toArray(bytes, size));
    EMAIL_MIME composed;
    composed.setTypeStr(QStringLiteral("multipart"));
    composed.setSubTypeStr(QStringLiteral("mixed"));
    composed.setDefaultFileds();
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        EMAIL_MultiPart part;
        EMAIL_MultiPart again;
        require(message.getMultiPart(i, part), "a part is read");
        composed.addMultiPart(part, -1);
        require(composed.getMultiPart(i, again), "it is read from where it was added");
        comparePairs(part, again, requireSamePart);
    }
    const EMAIL_MIME reread(toArray(composed.assemble()));
    require(reread.getMultiPartCount() <= message.getMultiPartCount(), "no part is split");
    return 0;
}
