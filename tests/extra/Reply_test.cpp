// SPDX-License-Identifier: MIT
#include "extra/Reply.h"

#include "extra/AddressList.h"
#include "extra/FieldParameter.h"
#include "extra/MessageContent.h"
#include "extra/Quoting.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <gtest/gtest.h>

namespace reply_test {

using namespace tarvomime;

namespace {

const QByteArray original =
    "From: \"M\xC3\xBCller, J\" <j@a.example>\r\nTo: me@b.example, =?utf-8?Q?B=2C_C?= "
    "<c@c.example>\r\n"
    "Subject: AW: =?utf-8?Q?Gr=C3=BC=C3=9Fe?=\r\nDate: Mon, 3 Jun 2024 10:15:00 +0200\r\n"
    "Message-ID: <2@a.example>\r\nReferences: <1@a.example>\r\n\r\nHello\r\n";

ReplyOptions options()
{
    ReplyOptions result;
    result.from = {"Smith, Me", "me@b.example", {}, {}};
    result.kind = ReplyKind::All;
    result.date = QDateTime::fromSecsSinceEpoch(1717490700);
    result.messageId = "<3@b.example>";
    return result;
}

QByteArray fieldOf(const EMAIL_MIME& message, const char* name)
{
    const EMAIL_Field* field = message.getHeader()->getField(name);
    return field == nullptr ? QByteArray() : QByteArray(field->mBody);
}

} // namespace

TEST(Reply, CarriesAWholeHeader)
{
    const EMAIL_MIME letter(original);
    EMAIL_MIME reply;
    ASSERT_TRUE(startReply(*letter.getHeader(), options(), reply));
    setFlowedBody(reply, QString::fromUtf8("Schön.\n\n") + quotedText("Hello\n"));
    const EMAIL_MIME again{QByteArray(reply.assemble())};
    const EMAIL_Header& header = *again.getHeader();
    EXPECT_EQ(readAddressList(header, "From").value(0).name, "Smith, Me");
    EXPECT_EQ(readAddressList(header, "To").value(0).name, QString::fromUtf8("Müller, J"));
    EXPECT_EQ(readAddressList(header, "Cc").value(0).address, "c@c.example");
    EXPECT_EQ(again.getSubject(CHARSET_UTF_8), QString::fromUtf8("Re: Grüße"));
    EXPECT_EQ(again.getDate(), 1717490700UL);
    EXPECT_EQ(fieldOf(again, "Message-ID"), "<3@b.example>");
    EXPECT_EQ(fieldOf(again, "In-Reply-To"), "<2@a.example>");
    EXPECT_EQ(fieldOf(again, "References"), "<1@a.example>\r\n\t<2@a.example>");
    EXPECT_EQ(fieldOf(again, "Mime-Version"), "1.0");
    EXPECT_EQ(fieldParameter(header.getContentType()->mBody, "format"), "flowed");
    EXPECT_EQ(textFromFlowed(again.getBody(CHARSET_UTF_8)).trimmed(),
              QString::fromUtf8("Schön.\n\n> Hello"));
}

TEST(Reply, HasADateAndAnIdByItself)
{
    const EMAIL_MIME letter(original);
    EMAIL_MIME reply;
    ReplyOptions fresh = options();
    fresh.date = QDateTime();
    fresh.messageId = QCString();
    ASSERT_TRUE(startReply(*letter.getHeader(), fresh, reply));
    EXPECT_GT(reply.getDate(), 1717490700UL);
    EXPECT_TRUE(fieldOf(reply, "Message-ID").endsWith("@b.example>"));
}

TEST(Reply, TellsWhoCannotBeWritten)
{
    const EMAIL_MIME letter(original);
    EMAIL_MIME reply;
    ReplyOptions wrong = options();
    wrong.from.address = "nobody";
    EXPECT_FALSE(startReply(*letter.getHeader(), wrong, reply).reason().isEmpty());
    EXPECT_FALSE(startForward(*letter.getHeader(), wrong, reply).reason().isEmpty());
    EXPECT_TRUE(reply.getFrom(CHARSET_UTF_8).isEmpty());
}

TEST(Forward, HasTheOriginalInItsText)
{
    const EMAIL_MIME letter(original);
    EMAIL_MIME message;
    ASSERT_TRUE(startForward(*letter.getHeader(), options(), message));
    EXPECT_EQ(message.getSubject(CHARSET_UTF_8), QString::fromUtf8("Fwd: AW: Grüße"));
    EXPECT_TRUE(message.getTo(CHARSET_UTF_8).isEmpty());
    EXPECT_EQ(forwardedText(*letter.getHeader(), "Hello\n", "Forwarded message"),
              QString::fromUtf8("---------- Forwarded message ----------\n"
                                "From: \"Müller, J\" <j@a.example>\n"
                                "To: me@b.example, \"B, C\" <c@c.example>\n"
                                "Date: Mon, 3 Jun 2024 10:15:00 +0200\n"
                                "Subject: AW: Grüße\n\nHello\n"));
}

TEST(Forward, AttachesTheOriginalAsItIs)
{
    for (const QByteArray& bytes : {original, QByteArray("Subject: a/b\r\n\r\nplain\r\n")}) {
        EMAIL_MultiPart part;
        attachMessage(bytes, part);
        EMAIL_MIME message;
        message.setType(TYPE_MULTIPART);
        message.setSubTypeStr("mixed");
        message.setDefaultFileds();
        message.addMultiPart(part, -1);
        const QByteArray text = message.assemble();
        EXPECT_TRUE(text.contains("message/rfc822")) << text.constData();
        EXPECT_TRUE(text.contains(bytes)) << text.constData();
        EXPECT_FALSE(text.contains("X-QRN")) << text.constData();
    }
}

TEST(Reply, QuotesFlowedParagraphsInOneLine)
{
    struct Row
    {
        const char* header;
        const char* expected;
    };
    const Row rows[] = {{"Content-Type: text/plain", "one \ntwo\n"},
                        {"Content-Type: text/plain; format=Flowed", "one two"},
                        {"Content-Type: text/plain; format=flowed; delsp=yes", "onetwo"},
                        {"Content-Type: text/html", "one two\n"}};
    for (const Row& row : rows) {
        const EMAIL_MIME letter(QByteArray(row.header) + "\r\n\r\none \r\ntwo\r\n");
        EXPECT_EQ(*quotableText(readContent(*letter.mMessage)), row.expected) << row.header;
    }
}

TEST(Forward, CarriesAttachmentsAsTheyAre)
{
    const EMAIL_MIME letter(
        QByteArray("Content-Type: multipart/mixed; boundary=b\r\n\r\n--b\r\n\r\ntext\r\n"
                   "--b\r\nContent-Type: application/pdf\r\nX-QRN-AS-Attn-Size: 3\r\n"
                   "Content-Disposition: attachment; filename*=utf-8''%C3%A4%22.pdf\r\n"
                   "Content-Transfer-Encoding: base64\r\n\r\nUERG\r\n"
                   "--b\r\nContent-Type: message/rfc822\r\n\r\nSubject: x\r\n\r\ny\r\n"
                   "--b--\r\n"));
    const QList<EMAIL_MultiPart> parts = forwardedAttachments(readContent(*letter.mMessage));
    ASSERT_EQ(parts.size(), 2);
    EXPECT_EQ(parts[0].getDispFileName(), QString::fromUtf8("ä'.pdf"));
    EXPECT_EQ(parts[0].getBody(), "PDF");
    EXPECT_EQ(parts[0].getAttSize(), -1);
    EXPECT_EQ(parts[1].getBody(), "Subject: x\r\n\r\ny");
}

// Neither in the part, whose names are written in quotes as they are, nor in the text.
TEST(Forward, LetsNobodyWriteFields)
{
    const EMAIL_MIME letter(QByteArray(
        "From: =?utf-8?Q?a=0D=0ABcc:_x@y.example=00=1B?= <a@b.example>\r\n"
        "Content-Type: multipart/mixed; boundary=b\r\n\r\n--b\r\n\r\ntext\r\n"
        "--b\r\nContent-Type: application/pdf\r\nContent-Disposition: attachment; "
        "filename*=utf-8''a.pdf%22%0D%0AX-Foreign:%20yes%0D%0A%0D%0A<script>\r\n\r\nx\r\n"
        "--b\r\nContent-Type: application/pdf; name=\"=?utf-8?Q?a=0D=0AX-Foreign:_yes?=\"\r\n"
        "Content-Disposition: attachment\r\n\r\nx\r\n"
        "--b\r\nContent-Type: application/pdf; name=\"b\\\\\"\r\n"
        "Content-Disposition: attachment\r\n\r\nx\r\n--b--\r\n"));
    QStringList names;
    for (EMAIL_MultiPart& part : forwardedAttachments(readContent(*letter.mMessage))) {
        names.append(part.getDispFileName());
        EMAIL_MIME message;
        message.addMultiPart(part, -1);
        const QByteArray text = message.assemble();
        EXPECT_FALSE(text.contains("\nX-Foreign")) << text.constData();
    }
    EXPECT_EQ(names, QStringList({"a.pdf'X-Foreign: yes<script>", "aX-Foreign: yes", "b_"}));
    EXPECT_EQ(forwardedText(*letter.getHeader(), "x", "Forwarded message"),
              "---------- Forwarded message ----------\n"
              "From: \"a Bcc: x@y.example \" <a@b.example>\n\nx");
}

} // namespace reply_test
