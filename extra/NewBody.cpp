// SPDX-License-Identifier: MIT
#include "extra/NewBody.h"

#include "extra/HtmlText.h"
#include "extra/Quoting.h"
#include "extra/TransferText.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

namespace tarvomime {

namespace {

EMAIL_MultiPart textPart(const char* subtype, const QString& text, int charset)
{
    const TransferText written = transferText(text, charset);
    EMAIL_MultiPart part;
    part.setType(TYPE_TEXT);
    part.setSubTypeStr(QString::fromLatin1(subtype));
    part.setCharset(written.charset);
    part.setCTE(written.cte);
    part.setAttSize(-1);
    part.setBody(written.bytes, true);
    return part;
}

EMAIL_MultiPart container(const char* subtype, const EMAIL_MultiPart& first,
                          const QList<EMAIL_MultiPart>& others)
{
    EMAIL_MultiPart parent;
    parent.setType(TYPE_MULTIPART);
    parent.setSubTypeStr(QString::fromLatin1(subtype));
    parent.setAttSize(-1);
    parent.addSubMultiPart(new EMAIL_MultiPart(first), -1);
    for (const EMAIL_MultiPart& other : others)
        parent.addSubMultiPart(new EMAIL_MultiPart(other), -1);
    return parent;
}

EMAIL_MultiPart htmlPart(const NewBody& body)
{
    const EMAIL_MultiPart html = textPart("html", body.html, body.charset);
    return body.inlineParts.isEmpty() ? html : container("related", html, body.inlineParts);
}

EMAIL_MultiPart partTree(const NewBody& body)
{
    const QString text = body.text.isNull() ? textFromHtml(body.html) : body.text;
    EMAIL_MultiPart root = textPart("plain", flowedText(text), body.charset);
    if (body.hasAlternatives()) {
        QList<EMAIL_MultiPart> others = body.alternatives;
        if (!body.html.isNull())
            others.prepend(htmlPart(body));
        root = container("alternative", root, others);
    }
    if (!body.attachments.isEmpty())
        root = container("mixed", root, body.attachments);
    return root;
}

void setText(const EMAIL_MultiPart& part, EMAIL_MIME& message)
{
    message.setDefaultFileds();
    message.setCharset(part.getCharset());
    if (part.getCTE() != CTE_7BIT)
        message.setCTE(part.getCTE());
    message.setBody(QString::fromLatin1(part.mBodyData), false);
}

void setParts(const EMAIL_MultiPart& root, EMAIL_MIME& message)
{
    message.setDefaultFileds(); // with a boundary, because the type is known
    for (int i = 0; i < root.getSubMultiPartCount(); ++i)
        message.addMultiPart(*root.getSubMultiPart(i), -1);
}

bool isContainer(const EMAIL_Entity& entity, const char* subtype)
{
    return entity.mBody->numBodyParts() > 0 && entity.mHeader->contentType()->mSubType == subtype;
}

// The parameters that a part value does not carry.
void setParameters(const NewBody& body, EMAIL_Entity& message)
{
    EMAIL_Entity* shown = isContainer(message, "mixed") ? message.mBody->bodyPart(0) : &message;
    EMAIL_Entity* plain = body.hasAlternatives() ? shown->mBody->bodyPart(0) : shown;
    plain->mHeader->contentType()->setParameter("format", "flowed");
    if (!body.html.isNull() && !body.inlineParts.isEmpty())
        shown->mBody->bodyPart(1)->mHeader->contentType()->setParameter("type", "\"text/html\"");
}

} // namespace

void setNewBody(const NewBody& body, EMAIL_MIME& message)
{
    const EMAIL_MultiPart root = partTree(body);
    message.setType(root.getType());
    message.setSubTypeStr(root.getSubTypeStr());
    if (root.getType() == TYPE_MULTIPART)
        setParts(root, message);
    else
        setText(root, message);
    setParameters(body, *message.mMessage);
}

} // namespace tarvomime
