// SPDX-License-Identifier: MIT
#include "extra/ContentWalk.h"

#include "tests/extra/ContentRow.h"

namespace content_walk_test {

using namespace tarvomime;
using namespace tarvomime::content;

namespace {

class ContentOfATree : public testing::TestWithParam<ContentRow>
{
};

} // namespace

TEST_P(ContentOfATree, IsWhatAReaderSees)
{
    expectContent(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Extra, ContentOfATree,
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

TEST(ContentOfADeepMessage, IsWalkedWithoutRecursion)
{
    const EMAIL_MIME message(QByteArray("Content-Type: message/rfc822\n\n").repeated(100000) +
                             plain("deep"));
    const MessageContent content = readContent(*message.mMessage);
    EXPECT_EQ(content.messages.size(), 100001);
    EXPECT_EQ(partNumber(content, 100000), "");
}

} // namespace content_walk_test
