// SPDX-License-Identifier: MIT
#include "extra/MessageContent.h"

#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarvomime;

namespace {

struct ContentRow
{
    const char* name;
    QByteArray mail;
    QString text;
    // The numbers of the parts that are attached, that belong to the HTML, and of the invitation.
    QByteArray attachments;
    QByteArray inlineParts = {};
    QByteArray invitation = {};
};

class Content : public testing::TestWithParam<ContentRow>
{
};

QByteArray numbers(const MessageContent& content, const QList<int>& parts)
{
    QByteArray joined;
    for (const int part : parts)
        joined += (joined.isEmpty() ? "" : " ") + partNumber(content, part);
    return joined;
}

QByteArray container(const QByteArray& type, std::initializer_list<QByteArray> parts)
{
    static int count = 0;
    const QByteArray boundary = "b" + QByteArray::number(++count) + "x";
    QByteArray mail = "Content-Type: " + type + "; boundary=" + boundary + "\n\n";
    for (const QByteArray& part : parts)
        mail += "--" + boundary + '\n' + part + '\n';
    return mail + "--" + boundary + "--\n";
}

QByteArray plain(const QByteArray& text)
{
    return "Content-Type: text/plain\n\n" + text;
}

QByteArray html(const QByteArray& text)
{
    return "Content-Type: text/html\n\n" + text;
}

QByteArray enclosed(const QByteArray& mail)
{
    return "Content-Type: message/rfc822\n\n" + mail;
}

const QByteArray kImage = "Content-Type: image/png\nContent-Id: <i@a>\n\nx";
const QByteArray kPdf = "Content-Type: application/pdf\n\nx";
const QByteArray kCalendar = "Content-Type: text/calendar; method=REQUEST\n\nBEGIN:VCALENDAR";
const QByteArray kNamed = "Content-Type: text/plain; name=\"a.txt\"\n\nfile";
const QByteArray kAttached = "Content-Type: text/plain\nContent-Disposition: attachment\n\nfile";

void expectRow(const EMAIL_MIME& message)
{
    const ContentRow& row = Content::GetParam();
    const MessageContent content = readContent(*message.mMessage);
    const Result<QString> text = shownText(content);
    ASSERT_TRUE(text) << text.reason().toStdString();
    EXPECT_EQ(*text, row.text);
    const ShownMessage& shown = content.messages[0];
    EXPECT_EQ(numbers(content, shown.attachments), row.attachments);
    EXPECT_EQ(numbers(content, shown.inlineParts), row.inlineParts);
    EXPECT_EQ(shown.invitation < 0 ? "" : partNumber(content, shown.invitation), row.invitation);
}

} // namespace

TEST_P(Content, OfBytes)
{
    expectRow(EMAIL_MIME(GetParam().mail));
}

TEST_P(Content, OfAFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.eml");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(GetParam().mail);
    file.close();
    EMAIL_MIME message;
    ASSERT_EQ(message.parse(path), 0);
    expectRow(message);
}

INSTANTIATE_TEST_SUITE_P(
    Single, Content,
    testing::Values(
        ContentRow{"Untyped", "A: b\n\nHello\n", "Hello\n", ""},
        ContentRow{"Plain", plain("Hello"), "Hello\n", ""}, ContentRow{"Empty", plain(""), "", ""},
        ContentRow{"CrLf", "A: b\r\n\r\nHello\r\nyou\r\n", "Hello\nyou\n", ""},
        ContentRow{"Flowed",
                   "Content-Type: text/plain; format=flowed\n\nHello \nyou\n> a \n> b\n-- \nme\n",
                   "Hello you\n> a b\n-- \nme\n", ""},
        ContentRow{"FlowedWithDelSp",
                   "Content-Type: text/plain; Format=Flowed; DelSp=Yes\n\nHel \nlo\n", "Hello\n",
                   ""},
        ContentRow{"NotFlowed", plain("Hello \nyou\n"), "Hello \nyou\n", ""},
        ContentRow{"Enriched", "Content-Type: text/enriched\n\n<bold>Hello</bold>\nyou\n\n<<you\n",
                   "Hello you\n<you\n", ""},
        ContentRow{"RichText", "Content-Type: text/richtext\n\nHello<nl>you\n", "Hello\nyou\n", ""},
        ContentRow{"Html", html("<p>Hello<br>you"), "Hello\nyou\n", ""},
        ContentRow{"Base64",
                   "Content-Type: text/plain\nContent-Transfer-Encoding: base64\n\nSGk=\n", "Hi\n",
                   ""},
        ContentRow{"CharsetByName", "Content-Type: text/plain; charset=windows-1252\n\n\x80", "€\n",
                   ""},
        ContentRow{"CharsetOfTheHtml",
                   html("<meta http-equiv=x content='text/html; charset=koi8-r'>\xD0\xD2"), "пр\n",
                   ""},
        ContentRow{"UndeclaredUtf8", "A: b\n\né", "é\n", ""}, ContentRow{"Image", kImage, "", "1"},
        ContentRow{"Calendar", kCalendar, "", "1", "", "1"},
        ContentRow{"SaysAttachment", kAttached, "", "1"},
        ContentRow{"NamedText", kNamed, "file\n", ""},
        ContentRow{"OpaqueSignature",
                   "Content-Type: application/pkcs7-mime; smime-type=signed-data\n\nx", "", "1"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Trees, Content,
    testing::Values(
        ContentRow{"Mixed", container("multipart/mixed", {plain("a"), kPdf}), "a\n", "1.2"},
        ContentRow{
            "NoHeader",
            container("multipart/mixed", {"\nReceived by us at 10:15\nfrom a\n\nand so on", kPdf}),
            "Received by us at 10:15\nfrom a\n\nand so on\n", "1.2"},
        ContentRow{"NoHeaderAndAnEmptyLine",
                   container("multipart/mixed", {"\nReceived by us at 10:15\n\nfrom a", kPdf}),
                   "Received by us at 10:15\n\nfrom a\n", "1.2"},
        ContentRow{"NoHeaderAndOneLine", container("multipart/mixed", {"\nHello", kPdf}), "Hello\n",
                   "1.2"},
        ContentRow{"NoHeaderButOneFieldLike",
                   container("multipart/mixed",
                             {"\nReceived by us at 10:15\nContent-Type: text/html\n\n<p>a", kPdf}),
                   "a\n", "1.2"},
        ContentRow{"TextBehind", container("multipart/mixed", {plain("a"), kPdf, plain("b")}),
                   "a\n\nb\n", "1.2"},
        ContentRow{"NamedTextBehind", container("multipart/mixed", {plain("a"), kNamed}), "a\n",
                   "1.2"},
        ContentRow{"OnlyAttached", container("multipart/mixed", {kPdf, kAttached}), "", "1.1 1.2"},
        ContentRow{"Alternative", container("multipart/alternative", {plain("a"), html("b")}),
                   "a\n", ""},
        ContentRow{"AlternativeWithoutPlain", container("multipart/alternative", {html("b")}),
                   "b\n", ""},
        ContentRow{"BlankPlain", container("multipart/alternative", {plain(" "), html("b")}), "b\n",
                   ""},
        ContentRow{"LastAlternative",
                   container("multipart/alternative", {plain("a"), plain("b"), html("c")}), "b\n",
                   ""},
        ContentRow{"Invitation", container("multipart/alternative", {plain("a"), kCalendar}), "a\n",
                   "", "", "1.2"},
        ContentRow{"Related", container("multipart/related", {html("a"), kImage}), "a\n", "",
                   "1.2"},
        ContentRow{"RelatedWithStart",
                   container("multipart/related; start=\"<r>\"",
                             {kImage, "Content-Id: <r>\nContent-Type: text/html\n\na"}),
                   "a\n", "", "1.1"},
        ContentRow{"RelatedInAlternative",
                   container("multipart/alternative",
                             {plain("a"), container("multipart/related", {html("b"), kImage})}),
                   "a\n", "", "1.2.2"},
        ContentRow{"AlternativeInRelated",
                   container("multipart/related",
                             {container("multipart/alternative", {plain("a"), html("b")}), kImage}),
                   "a\n", "", "1.2"},
        ContentRow{
            "MixedInAlternative",
            container("multipart/alternative",
                      {plain("a"), container("multipart/mixed", {html("b"), kPdf, html("c")})}),
            "a\n", "1.2.2"},
        ContentRow{"HtmlOfMixedInAlternative",
                   container("multipart/alternative",
                             {container("multipart/mixed", {html("b"), kPdf, html("c")})}),
                   "b\nc\n", "1.1.2"},
        ContentRow{"Signed",
                   container("multipart/signed; protocol=\"application/pgp-signature\"",
                             {plain("a"), "Content-Type: application/pgp-signature\n\nx"}),
                   "a\n", ""},
        ContentRow{"Encrypted",
                   container("multipart/encrypted",
                             {"Content-Type: application/pgp-encrypted\n\nVersion: 1",
                              "Content-Type: application/octet-stream\n\nx"}),
                   "", "1.1 1.2"},
        ContentRow{"Report",
                   container("multipart/report",
                             {plain("a"), "Content-Type: message/delivery-status\n\nAction: failed",
                              "Content-Type: text/rfc822-headers\n\nSubject: x"}),
                   "a\n", "1.2 1.3"},
        ContentRow{"WapRelated",
                   container("application/vnd.wap.multipart.related", {plain("a"), kImage}), "a\n",
                   "", "1.2"},
        ContentRow{"WapMixed", container("application/vnd.wap.multipart.mixed", {plain("a"), kPdf}),
                   "a\n", "1.2"},
        ContentRow{"Enclosed", container("multipart/mixed", {plain("a"), enclosed(plain("b"))}),
                   "a\n", "1.2"},
        ContentRow{"OnlyEnclosed", enclosed(plain("b")), "b\n", "1"},
        ContentRow{"EnclosedTwice", enclosed(enclosed(html("b"))), "b\n", "1"},
        ContentRow{"Digest",
                   container("multipart/digest", {enclosed(kImage), enclosed(plain("b"))}), "b\n",
                   "1.1 1.2"},
        ContentRow{"WithoutADelimiter", "Content-Type: multipart/mixed; boundary=b\n\nHello\n",
                   "Hello\n", ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ContentOfEnclosedMessages, HasItsOwnTextAndAttachments)
{
    const EMAIL_MIME message(
        container("multipart/mixed",
                  {plain("a"), enclosed(container("multipart/mixed", {html("b"), kPdf}))}));
    const MessageContent content = readContent(*message.mMessage);
    ASSERT_EQ(content.messages.size(), 2);
    EXPECT_EQ(content.messages[1].parent, 0);
    EXPECT_EQ(partNumber(content, content.messages[1].part), "1.2.1");
    EXPECT_EQ(shownText(content, 1).valueOr(""), "b\n");
    EXPECT_EQ(numbers(content, content.messages[1].attachments), "1.2.1.2");
    EXPECT_EQ(partBytes(content.parts[content.messages[1].attachments[0]]).valueOr(""), "x");
}

TEST(ContentAsHtml, IsTheSendersWithItsImages)
{
    const EMAIL_MIME message(container("multipart/related", {html("<img src=cid:i%40a>"), kImage}));
    const MessageContent content = readContent(*message.mMessage);
    EXPECT_EQ(shownHtml(content).valueOr(""), "<img src=cid:i%40a>");
    EXPECT_EQ(findInline(content, 0, "cid:i%40a"), 2);
    EXPECT_EQ(findInline(content, 0, "cid:other"), -1);
    EXPECT_EQ(findInline(content, 0, "cid:"), -1);
    EXPECT_EQ(findInline(content, 0, ""), -1);
}

TEST(ContentAsHtml, IsMadeOfPlainText)
{
    const EMAIL_MIME message(plain("1 < 2"));
    EXPECT_EQ(shownHtml(readContent(*message.mMessage)).valueOr(""), "<pre>1 &lt; 2\n</pre>\n");
}

TEST(ContentWrappers, AreNamedWithTheirParts)
{
    const EMAIL_MIME message(
        container("multipart/signed; protocol=\"application/PGP-signature\"",
                  {plain("a"), "Content-Type: application/pgp-signature\n\nx"}));
    const MessageContent content = readContent(*message.mMessage);
    ASSERT_EQ(content.messages[0].wrappers.size(), 1);
    const SecurityWrapper& wrapper = content.messages[0].wrappers[0];
    EXPECT_EQ(wrapper.kind, SecurityWrapper::Kind::Signed);
    EXPECT_EQ(wrapper.protocol, "application/pgp-signature");
    EXPECT_EQ(wrapper.wrapper, 0);
    EXPECT_EQ(wrapper.content, 1);
    EXPECT_EQ(wrapper.signature, 2);
}

TEST(ContentOfAFileThatIsGone, FailsWithAReason)
{
    EMAIL_MIME message;
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.eml");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(plain("a"));
        file.close();
        ASSERT_EQ(message.parse(path), 0);
    }
    const Result<QString> text = shownText(readContent(*message.mMessage));
    EXPECT_FALSE(text);
    EXPECT_THAT(text.reason().toStdString(), testing::StartsWith("its text cannot be read"));
}

TEST(ContentOfADeepMessage, IsWalkedWithoutRecursion)
{
    const EMAIL_MIME message(QByteArray("Content-Type: message/rfc822\n\n").repeated(100000) +
                             plain("deep"));
    const MessageContent content = readContent(*message.mMessage);
    EXPECT_EQ(content.messages.size(), 100001);
    EXPECT_EQ(partNumber(content, 100000), "");
}
