// SPDX-License-Identifier: MIT
// A message whose attachment stayed on the server: marks it, lists it, and completes it later.
#include <QString>
#include <cstdio>
#include <utility/EMAIL_MIME.h>
#include <utility/EMAIL_MultiPart.h>

namespace {

EMAIL_MultiPart textPart()
{
    EMAIL_MultiPart part;
    part.setTypeStr("text");
    part.setSubTypeStr("plain");
    part.setCTE(CTE_7BIT);
    part.setPartID("1");
    part.setAttSize(-1);
    part.setBody(QByteArray("See the picture."), false);
    return part;
}

// What the server announced: name, size and how to ask for it.
EMAIL_MultiPart announcedPart()
{
    EMAIL_MultiPart part;
    part.setTypeStr("image");
    part.setSubTypeStr("png");
    part.setPartID("2");
    part.setNoAttDownloaded();
    part.setASAttName("lageplan.png");
    part.setAttSize(34567);
    return part;
}

void list(const EMAIL_MIME& message)
{
    std::printf("complete: %s, attachments: %d\n", message.isCompleteMessage() ? "yes" : "no",
                message.getAttachNum());
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        EMAIL_MultiPart part;
        if (!message.getMultiPart(i, part) || part.getType() == TYPE_TEXT)
            continue;
        std::printf("  %s, part %s, %d bytes, %s\n", qPrintable(part.getASAttName()),
                    qPrintable(part.getPartID()), part.getAttSize(),
                    part.isAttDownloaded() ? "here" : "on the server");
    }
}

// The bytes arrived: they become the body, and the part is written back.
void complete(EMAIL_MIME& message, int index, const QByteArray& bytes)
{
    EMAIL_MultiPart part;
    if (!message.getMultiPart(index, part))
        return;
    part.setCTE(CTE_BASE64);
    part.setBody(bytes, false);
    part.setDispFileName(part.getASAttName());
    part.setDispType(1);
    part.setAttDownloaded();
    message.setMultiPart(part, index, true);
}

} // namespace

int main()
{
    EMAIL_MIME message;
    message.setTypeStr("multipart");
    message.setSubTypeStr("mixed");
    message.setDefaultFileds();
    message.addMultiPart(textPart(), -1);
    message.addMultiPart(announcedPart(), -1);
    list(message);
    complete(message, 1, QByteArray(34567, '\x89'));
    list(message);
    return 0;
}
