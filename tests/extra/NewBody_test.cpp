// SPDX-License-Identifier: MIT
#include "extra/NewBody.h"

#include "extra/FieldParameter.h"
#include "extra/MessageContent.h"
#include "extra/Quoting.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

#include <gtest/gtest.h>

namespace new_body_test {

using namespace tarvomime;

namespace {

EMAIL_MultiPart filePart(const QString& name, const QString& id = {})
{
    EMAIL_MultiPart part;
    part.setTypeStr("image");
    part.setSubTypeStr("png");
    part.setName(name);
    part.setDispFileName(name);
    part.setDispType(id.isEmpty() ? 1 : 0);
    part.setID(id);
    part.setAttSize(-1);
    part.setCTE(CTE_BASE64);
    part.setBody(QByteArray("\x89PNG"), false);
    return part;
}

NewBody bodyOf(const QString& text, const QString& html, bool inlined, bool attached)
{
    NewBody body;
    body.text = text;
    body.html = html;
    if (inlined)
        body.inlineParts.append(filePart("i.png", "<i.png>"));
    if (attached)
        body.attachments.append(filePart("a.png"));
    return body;
}

struct BodyRow
{
    const char* name;
    NewBody body;
    // Types of the parts in reading order.
    QByteArray types;
};

void PrintTo(const BodyRow& row, std::ostream* out)
{
    *out << row.name;
}

class ComposedBody : public testing::TestWithParam<BodyRow>
{
};

QByteArray typesOf(const MessageContent& content)
{
    QByteArray types;
    for (const ContentPart& part : content.parts)
        types += (types.isEmpty() ? "" : " ") + part.type;
    return types;
}

const QString kText =
    QString::fromUtf8("Grüße, ").repeated(30).trimmed() + "\n> quote\n-- \nMira\n";
const QString kHtml = QString::fromUtf8("<p>Grüße <img src='cid:i.png'></p>\n");

} // namespace

TEST_P(ComposedBody, HasItsPartsAndTexts)
{
    EMAIL_MIME message;
    setNewBody(GetParam().body, message);
    const EMAIL_MIME again{QByteArray(message.assemble())};
    const QByteArray printed(message.assemble());
    const MessageContent content = readContent(*again.mMessage);
    EXPECT_EQ(typesOf(content), GetParam().types) << printed.constData();
    const ShownMessage& shown = content.messages.first();
    ASSERT_EQ(shown.bodies.size(), 1) << printed.constData();
    const ContentPart& plain = content.parts[shown.bodies[0].plain.value(0)];
    EXPECT_EQ(fieldParameter(plain.entity->mHeader->getField("Content-Type")->mBody, "format"),
              "flowed");
    const QString text = textFromFlowed(partText(plain)->text);
    EXPECT_EQ(text,
              GetParam().body.text.isNull() ? QString::fromUtf8("Grüße\n") : GetParam().body.text)
        << printed.constData();
    // Line ends around a body are no part of it in this library's eyes.
    if (!shown.bodies[0].html.isEmpty()) {
        EXPECT_EQ(partText(content.parts[shown.bodies[0].html[0]])->text + '\n',
                  GetParam().body.html);
    }
    EXPECT_EQ(shown.attachments.size(), GetParam().body.attachments.size());
    EXPECT_EQ(findInline(content, 0, "cid:i.png") > 0, !GetParam().body.inlineParts.isEmpty());
    EXPECT_FALSE(printed.contains("X-QRN"));
}

INSTANTIATE_TEST_SUITE_P(
    Extra, ComposedBody,
    testing::Values(
        BodyRow{"Text", bodyOf(kText, {}, false, false), "text/plain"},
        BodyRow{"EmptyText", bodyOf("", {}, false, false), "text/plain"},
        BodyRow{"Attachment", bodyOf(kText, {}, false, true),
                "multipart/mixed text/plain image/png"},
        BodyRow{"HtmlBeside", bodyOf(kText, kHtml, false, false),
                "multipart/alternative text/plain text/html"},
        BodyRow{"HtmlAlone", bodyOf({}, kHtml, false, false),
                "multipart/alternative text/plain text/html"},
        BodyRow{"Inline", bodyOf(kText, kHtml, true, false),
                "multipart/alternative text/plain multipart/related text/html image/png"},
        BodyRow{"Everything", bodyOf(kText, kHtml, true, true),
                "multipart/mixed multipart/alternative text/plain multipart/related text/html "
                "image/png image/png"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace new_body_test
