// SPDX-License-Identifier: MIT
#include "tests/support/OpenResources.h"
#include "tests/support/RecordingFile.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <memory>
#include <type_traits>

namespace email_mime_test {

namespace {

// A multipart message whose parts are named by their bodies.
QByteArray messageOf(const QByteArray& contentType, const QList<QByteArray>& parts)
{
    QByteArray text = "Content-Type: " + contentType + "; boundary=b\r\n\r\n";
    for (const QByteArray& part : parts)
        text += "--b\r\n" + part + "\r\n";
    return text + "--b--\r\n";
}

QByteArray plain(const QByteArray& body)
{
    return "Content-Type: text/plain\r\n\r\n" + body;
}

const QByteArray nested("Content-Type: multipart/alternative; boundary=c\r\n\r\n"
                        "--c\r\nContent-Type: text/plain\r\n\r\nx\r\n"
                        "--c\r\nContent-Type: text/html\r\n\r\n<x>\r\n--c--");

EMAIL_MultiPart* textPart(const char* body)
{
    auto* part = new EMAIL_MultiPart(nullptr);
    part->setType(TYPE_TEXT);
    part->setSubType(1);
    part->setCTE(CTE_7BIT);
    part->setBody(QByteArray(body), true);
    return part;
}

QByteArray bodiesOf(const EMAIL_MIME& mime)
{
    QByteArray bodies;
    for (const EMAIL_BodyPart* part : mime.mMessage->mBody->mBodyParts)
        bodies += QByteArray(part->mBody->getMessage());
    return bodies;
}

// A part whose body could not be encoded: a length without bytes.
std::unique_ptr<EMAIL_MultiPart> refusedPart()
{
    std::unique_ptr<EMAIL_MultiPart> part(textPart("lost"));
    part->mBodyData.clear();
    return part;
}

std::unique_ptr<EMAIL_MIME> emptyHandle()
{
    auto mime = std::make_unique<EMAIL_MIME>();
    delete mime->mMessage;
    mime->mMessage = nullptr;
    return mime;
}

} // namespace

TEST(EMAIL_MIME, IsABasicMessageWithNothingAdded)
{
    static_assert(std::is_base_of_v<EMAIL_BasicMsg, EMAIL_MIME>);
    static_assert(sizeof(EMAIL_MIME) == sizeof(EMAIL_BasicMsg));
    const EMAIL_MIME empty;
    EXPECT_EQ(empty.mLength, 0);
    ASSERT_NE(empty.mMessage, nullptr);
    const EMAIL_MIME bytes(QByteArray("A: 1\r\n\r\nx\0y", 11));
    EXPECT_EQ(bytes.mLength, 9);
    EXPECT_EQ(bytes.getBody(0), QStringLiteral("x")) << "every getBody can be called";
    const EMAIL_MIME text(QStringLiteral("A: 1\r\n\r\nxy"));
    EXPECT_EQ(text.mLength, 10);
    EXPECT_EQ(text.getBody(0), QStringLiteral("xy"));
}

TEST(EMAIL_MIME, DefaultFieldsIncludeABoundaryForMultipart)
{
    EMAIL_MIME mime;
    mime.setType(TYPE_MULTIPART);
    mime.setSubTypeStr(QStringLiteral("mixed"));
    EMAIL_BasicMsg& basic = mime;
    basic.setDefaultFileds();
    EXPECT_EQ(mime.getXMailer(), QStringLiteral("Kelda-Tarvo"));
    EXPECT_EQ(mime.getMimeVersion(), QStringLiteral("1.0"));
    const QCString boundary = mime.getBoundary();
    EXPECT_EQ(boundary.length(), 36);
    mime.setDefaultFileds();
    EXPECT_NE(mime.getBoundary(), boundary) << "fresh each time";

    EMAIL_MIME single;
    single.setDefaultFileds();
    EXPECT_EQ(single.getBoundary(), "");
    EXPECT_EQ(single.getTypeStr(), QStringLiteral("text")) << "the field is created";
}

TEST(EMAIL_MIME, BoundaryIsThatOfTheContentType)
{
    const EMAIL_MIME mime(messageOf("multipart/mixed", {plain("1")}));
    EXPECT_EQ(mime.getBoundary(), "b");
    const EMAIL_MIME plainMessage(QByteArray("A: 1\r\n\r\n"));
    EXPECT_EQ(plainMessage.getBoundary(), "");
    EXPECT_EQ(plainMessage.getHeader()->mFields.count(), 1) << "nothing is created by asking";
}

TEST(EMAIL_MIME, PartsAreReadByIndex)
{
    const EMAIL_MIME mime(messageOf("multipart/mixed", {plain("1"), plain("2")}));
    EXPECT_EQ(mime.getMultiPartCount(), 2);
    for (const int index : {-1, 2, 3}) {
        EMAIL_MultiPart part(nullptr);
        EXPECT_FALSE(mime.getMultiPart(index, part)) << index;
        EXPECT_TRUE(part.getTypeStr().isNull()) << index;
    }
    EMAIL_MultiPart part(nullptr);
    EXPECT_TRUE(mime.getMultiPart(1, part));
    EXPECT_EQ(part.getBody(), "2");
    EXPECT_EQ(part.getTypeStr(), QStringLiteral("text"));
    EXPECT_EQ(part.getCTE(), CTE_7BIT);
    EXPECT_TRUE(part.mEncoded);
}

TEST(EMAIL_MIME, PartsOfEveryContainerTypeAreRead)
{
    for (const char* type :
         {"multipart/mixed", "MULTIPART/x-odd", "application/vnd.wap.multipart.related",
          "application/vnd.wap.multipart.mixed"}) {
        const EMAIL_MIME mime(messageOf(type, {plain("1")}));
        EMAIL_MultiPart part(nullptr);
        EXPECT_TRUE(mime.getMultiPart(0, part)) << type;
        EXPECT_EQ(part.getBody(), "1") << type;
    }
    for (const char* type : {"text/plain", "application/vnd.wap.multipart.alternative"}) {
        const EMAIL_MIME mime(messageOf(type, {plain("1")}));
        EMAIL_MultiPart part(nullptr);
        EXPECT_FALSE(mime.getMultiPart(0, part)) << type;
    }
}

TEST(EMAIL_MIME, MessageWithoutContentTypeHasNoPartsToRead)
{
    EMAIL_MIME mime;
    const std::unique_ptr<EMAIL_MultiPart> added(textPart("1"));
    mime.addMultiPart(*added, 0);
    EXPECT_EQ(mime.getMultiPartCount(), 1);
    EMAIL_MultiPart part(nullptr);
    EXPECT_FALSE(mime.getMultiPart(0, part));
}

TEST(EMAIL_MIME, EnclosedMessageIsReadAlthoughItIsNoPart)
{
    const EMAIL_MIME mime(QByteArray("Content-Type: message/rfc822\r\n\r\nSubject: in\r\n"
                                     "Content-Type: text/html\r\n\r\n<b>"));
    EXPECT_EQ(mime.getMultiPartCount(), 0);
    EMAIL_MultiPart part(nullptr);
    EXPECT_TRUE(mime.getMultiPart(0, part));
    EXPECT_EQ(part.getSubTypeStr(), QStringLiteral("html"));
    EXPECT_EQ(part.getBody(), "<b>");
    EXPECT_FALSE(mime.getMultiPart(1, part)) << "the index is tested first";
    EXPECT_FALSE(mime.getMultiPart(-1, part));
}

TEST(EMAIL_MIME, EnclosedMessageInAFileIsNotParsed)
{
    const StoredFile stored("Content-Type: message/rfc822\r\n\r\nSubject: in\r\n\r\nx");
    EMAIL_MIME mime;
    ASSERT_EQ(mime.parse(stored.path()), 0);
    EMAIL_MultiPart part(nullptr);
    EXPECT_FALSE(mime.getMultiPart(0, part));
}

namespace {

struct InsertRow
{
    int index;
    const char* bodies;
};

class InsertPart : public testing::TestWithParam<InsertRow>
{
};

} // namespace

TEST_P(InsertPart, IndexOutsideTheListAppends)
{
    const std::unique_ptr<EMAIL_MultiPart> part(textPart("x"));
    EMAIL_MIME added(messageOf("multipart/mixed", {plain("1"), plain("2")}));
    added.addMultiPart(*part, GetParam().index);
    EXPECT_EQ(bodiesOf(added), GetParam().bodies);
    EXPECT_EQ(added.mMessage->mBody->bodyPart(0)->mParent, added.mMessage->mBody);
    EMAIL_MIME set(messageOf("multipart/mixed", {plain("1"), plain("2")}));
    EXPECT_TRUE(set.setMultiPart(*part, GetParam().index, false));
    EXPECT_EQ(bodiesOf(set), GetParam().bodies);
}

INSTANTIATE_TEST_SUITE_P(Rows, InsertPart,
                         testing::Values(InsertRow{-1, "12x"}, InsertRow{0, "x12"},
                                         InsertRow{1, "1x2"}, InsertRow{2, "12x"},
                                         InsertRow{3, "12x"}, InsertRow{5, "12x"}));

namespace {

class ReplacePart : public testing::TestWithParam<InsertRow>
{
};

} // namespace

TEST_P(ReplacePart, SucceedsAlsoWhereThereIsNothingToReplace)
{
    const std::unique_ptr<EMAIL_MultiPart> part(textPart("x"));
    EMAIL_MIME mime(messageOf("multipart/mixed", {plain("1"), plain("2")}));
    EXPECT_TRUE(mime.setMultiPart(*part, GetParam().index, true));
    EXPECT_EQ(bodiesOf(mime), GetParam().bodies);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReplacePart,
                         testing::Values(InsertRow{-1, "12x"}, InsertRow{0, "x2"},
                                         InsertRow{1, "1x"}, InsertRow{2, "12x"},
                                         InsertRow{9, "12x"}));

TEST(EMAIL_MIME, PartsAreRemovedByIndex)
{
    EMAIL_MIME mime(messageOf("multipart/mixed", {plain("1"), plain("2")}));
    for (const int index : {-1, 2, 3})
        EXPECT_FALSE(mime.removeMultiPart(index)) << index;
    EXPECT_TRUE(mime.removeMultiPart(0));
    EXPECT_EQ(bodiesOf(mime), "2");
}

TEST(EMAIL_MIME, HandleWithoutAMessage)
{
    const std::unique_ptr<EMAIL_MIME> mime = emptyHandle();
    EMAIL_MultiPart part(nullptr);
    EXPECT_EQ(mime->getMultiPartCount(), 0);
    EXPECT_FALSE(mime->getMultiPart(0, part));
    EXPECT_FALSE(mime->removeMultiPart(0));
    EXPECT_EQ(mime->getBoundary(), "");
    mime->setDefaultFileds();
    mime->makeHeaderSendable();
    EXPECT_EQ(mime->mMessage, nullptr);
    const std::unique_ptr<EMAIL_MultiPart> text(textPart("x"));
    mime->addMultiPart(*text, 0);
    ASSERT_NE(mime->mMessage, nullptr) << "made on demand";
    EXPECT_EQ(mime->getMultiPartCount(), 1);
    const std::unique_ptr<EMAIL_MIME> other = emptyHandle();
    EXPECT_TRUE(other->setMultiPart(*text, 7, true));
    EXPECT_EQ(other->getMultiPartCount(), 1);
}

TEST(EMAIL_MIME, TreeIsReadLevelByLevel)
{
    const EMAIL_MIME mime(messageOf("multipart/mixed", {nested}));
    EMAIL_MultiPart part(nullptr);
    ASSERT_TRUE(mime.getMultiPart(0, part));
    EXPECT_EQ(part.getSubTypeStr(), QStringLiteral("alternative"));
    EXPECT_EQ(part.mBoundary, QStringLiteral("c"));
    ASSERT_EQ(part.getSubMultiPartCount(), 2);
    EXPECT_EQ(part.getSubMultiPart(0)->getBody(), "x");
    EXPECT_EQ(part.getSubMultiPart(1)->getBody(), "<x>");
    EXPECT_EQ(part.getSubMultiPart(1)->getParent(), &part);
    EXPECT_TRUE(mime.getMultiPart(0, part)) << "a part that is not new";
    EXPECT_EQ(part.getSubMultiPartCount(), 4) << "sub-parts are appended";
}

TEST(EMAIL_MIME, ContainerWrittenBackGetsAFreshBoundary)
{
    EMAIL_MIME mime(messageOf("multipart/mixed", {nested}));
    EMAIL_MultiPart part(nullptr);
    ASSERT_TRUE(mime.getMultiPart(0, part));
    EXPECT_TRUE(mime.setMultiPart(part, 0, true));
    const EMAIL_BodyPart* written = mime.mMessage->mBody->bodyPart(0);
    const QCString boundary = written->mHeader->getContentType()->mBoundary;
    EXPECT_EQ(boundary.length(), 36) << boundary.data();
    ASSERT_EQ(written->mBody->numBodyParts(), 2);
    EXPECT_EQ(written->mBody->bodyPart(1)->mBody->getMessage(), "<x>");
    EXPECT_EQ(written->mBody->bodyPart(1)->mParent, written->mBody);

    const EMAIL_MIME again{QByteArray(mime.assemble())};
    EMAIL_MultiPart read(nullptr);
    ASSERT_TRUE(again.getMultiPart(0, read)) << mime.assemble().data();
    ASSERT_EQ(read.getSubMultiPartCount(), 2);
    EXPECT_EQ(read.getSubMultiPart(0)->getBody(), "x");
}

TEST(EMAIL_MIME, LeafWithSubPartsIsWrittenWithoutThem)
{
    std::unique_ptr<EMAIL_MultiPart> part(textPart("x"));
    part->addSubMultiPart(textPart("y"), -1);
    EMAIL_MIME mime;
    mime.addMultiPart(*part, 0);
    EXPECT_EQ(mime.mMessage->mBody->bodyPart(0)->mBody->numBodyParts(), 0);
    EXPECT_EQ(bodiesOf(mime), "x");
}

TEST(EMAIL_MIME, ContainerIsWrittenWithoutABody)
{
    EMAIL_MultiPart part(nullptr);
    part.setType(TYPE_MULTIPART);
    part.setSubTypeStr(QStringLiteral("mixed"));
    part.setBody(QByteArray("lost"), true);
    part.addSubMultiPart(textPart("kept"), -1);
    part.mSubParts.append(nullptr);
    EMAIL_MIME mime;
    mime.addMultiPart(part, 0);
    const EMAIL_Body& body = *mime.mMessage->mBody->bodyPart(0)->mBody;
    EXPECT_EQ(body.getMessage(), "");
    EXPECT_EQ(body.numBodyParts(), 1) << "null entries are skipped";
    part.mSubParts.take(1);
}

TEST(EMAIL_MIME, BodyTravelsAsItIs)
{
    const QByteArray odd("not \x80 base64 =?\r\nat all");
    EMAIL_MultiPart part(nullptr);
    part.setType(TYPE_IMAGE);
    part.setSubTypeStr(QStringLiteral("png"));
    part.setCTE(CTE_BASE64);
    part.setBody(odd, true);
    EMAIL_MIME mime;
    mime.setType(TYPE_MULTIPART);
    mime.addMultiPart(part, 0);
    EXPECT_EQ(bodiesOf(mime), odd);
    EMAIL_MultiPart read(nullptr);
    ASSERT_TRUE(mime.getMultiPart(0, read));
    EXPECT_EQ(read.mBodyData, odd);
    EXPECT_EQ(read.getCTE(), CTE_BASE64);

    part.setCTE(CTE_8BIT);
    part.setBody(QByteArray("a\0b", 3), true);
    mime.setMultiPart(part, 0, true);
    EXPECT_EQ(bodiesOf(mime), QByteArray("a\0b", 3));
}

TEST(EMAIL_MIME, FileReferenceTravelsThereAndBack)
{
    for (const bool encoded : {true, false}) {
        EMAIL_MultiPart part(nullptr);
        part.setType(TYPE_IMAGE);
        part.setSubTypeStr(QStringLiteral("png"));
        part.setCTE(CTE_BASE64);
        part.setBodyInfo(QStringLiteral("/no/such/file"), 7, 9, encoded);
        EMAIL_MIME mime;
        mime.setType(TYPE_MULTIPART);
        mime.addMultiPart(part, 0);
        const EMAIL_Body& body = *mime.mMessage->mBody->bodyPart(0)->mBody;
        EXPECT_FALSE(body.isInMemory());
        EMAIL_MultiPart read(nullptr);
        ASSERT_TRUE(mime.getMultiPart(0, read));
        QString path;
        int offset = 0;
        int length = 0;
        bool isEncoded = !encoded;
        read.getBodyInfo(path, offset, length, isEncoded);
        EXPECT_EQ(path, QStringLiteral("/no/such/file"));
        EXPECT_EQ(offset, 7);
        EXPECT_EQ(length, 9);
        EXPECT_EQ(isEncoded, encoded);
        EXPECT_FALSE(read.isInMemory());
    }
}

TEST(EMAIL_MIME, PartOfAStoredMessageStaysInItsFile)
{
    const QByteArray text = messageOf("multipart/mixed", {plain("one"), nested});
    const StoredFile stored(text);
    EMAIL_MIME mime;
    ASSERT_EQ(mime.parse(stored.path()), 0);
    EMAIL_MultiPart part(nullptr);
    ASSERT_TRUE(mime.getMultiPart(0, part));
    EXPECT_FALSE(part.isInMemory());
    EXPECT_EQ(text.mid(part.mBodyOffset, part.mBodyLength), "one");
    EMAIL_MultiPart tree(nullptr);
    ASSERT_TRUE(mime.getMultiPart(1, tree));
    RecordingFile target;
    EXPECT_EQ(tree.getSubMultiPart(1)->getBody(&target), 0);
    EXPECT_EQ(target.written(), "<x>");
}

TEST(EMAIL_MIME, StoredEntityIsRead)
{
    const StoredFile stored("Content-Type: text/html\r\n\r\n<b>bold</b>");
    const OpenResources before = OpenResources::of(stored.path());
    EMAIL_MultiPart part(nullptr);
    bool hasHeader = false;
    EXPECT_EQ(EMAIL_MIME::convertFileToMulitPart(stored.path(), part, hasHeader), 0);
    EXPECT_TRUE(hasHeader);
    EXPECT_EQ(OpenResources::of(stored.path()), before);
    EXPECT_EQ(part.getSubTypeStr(), QStringLiteral("html"));
    EXPECT_FALSE(part.isInMemory());
    RecordingFile target;
    EXPECT_EQ(part.getBody(&target), 0);
    EXPECT_EQ(target.written(), "<b>bold</b>");
}

TEST(EMAIL_MIME, StoredTreeIsRead)
{
    const StoredFile stored(nested);
    EMAIL_MultiPart part(nullptr);
    bool hasHeader = false;
    EXPECT_EQ(EMAIL_MIME::convertFileToMulitPart(stored.path(), part, hasHeader), 0);
    EXPECT_EQ(part.getSubMultiPartCount(), 2);
    QString text;
    EXPECT_EQ(part.getSubMultiPart(0)->getTextBody(text, 0), 0);
    EXPECT_EQ(text, QStringLiteral("x"));
}

TEST(EMAIL_MIME, StoredBodyWithoutAHeaderLeavesThePartAlone)
{
    const StoredFile stored("just text\r\n\r\nmore");
    EMAIL_MultiPart part(nullptr);
    bool hasHeader = true;
    EXPECT_EQ(EMAIL_MIME::convertFileToMulitPart(stored.path(), part, hasHeader), 0);
    EXPECT_FALSE(hasHeader);
    EXPECT_TRUE(part.getTypeStr().isNull());
}

TEST(EMAIL_MIME, FileThatCannotBeMappedIsReported)
{
    const StoredFile empty("");
    const OpenResources before = OpenResources::of(empty.path());
    for (const QString& path : {empty.path(), empty.missingPath(), QString()}) {
        EMAIL_MultiPart part(nullptr);
        bool hasHeader = false;
        EXPECT_EQ(EMAIL_MIME::convertFileToMulitPart(path, part, hasHeader), -1);
        EXPECT_TRUE(hasHeader);
    }
    EXPECT_EQ(OpenResources::of(empty.path()), before);
}

TEST(EMAIL_MIME, SendableMessageHasNoBookkeepingOnAnyLevel)
{
    const QByteArray bookkeeping("X-QRN-AS-Attn-Undownload: 1\r\nX-QRN-AS-Attn-Size: 5\r\n"
                                 "X-QRN-AS-Attn-Name: n\r\nX-MESSAGE-PARTID: 2\r\nX-Odd: 1\r\n");
    EMAIL_MIME mime(
        "Bcc: a@b\r\nX-QRN-DSN: 1\r\n" +
        messageOf("multipart/mixed", {bookkeeping + plain("1"), plain("2"), bookkeeping + nested}));
    mime.makeHeaderSendable();
    EXPECT_EQ(bodiesOf(mime), "12");
    const QByteArray text = mime.assemble();
    EXPECT_FALSE(text.contains("X-QRN")) << text.constData();
    EXPECT_FALSE(text.contains("Bcc")) << text.constData();
    EXPECT_FALSE(text.contains("X-Odd")) << "parts are rebuilt: " << text.constData();
    EXPECT_EQ(text.count("X-MESSAGE-PARTID: 2"), 2) << text.constData();
    EXPECT_FALSE(text.contains("Boundary=\"c\"")) << "a fresh boundary: " << text.constData();
    EXPECT_EQ(mime.getBoundary(), "b") << "the message keeps its own";
    EXPECT_EQ(mime.getMultiPartCount(), 3);
    EMAIL_MultiPart part(nullptr);
    ASSERT_TRUE(mime.getMultiPart(2, part));
    EXPECT_EQ(part.getSubMultiPart(1)->getBody(), "<x>");
}

TEST(EMAIL_MIME, NullPartsAreNoParts)
{
    const QByteArray missing("X-QRN-AS-Attn-Undownload: 1\r\n" + plain("1"));
    EMAIL_MIME mime(messageOf("multipart/alternative", {missing, nested}));
    EMAIL_Body& inner = *mime.mMessage->mBody->bodyPart(1)->mBody;
    inner.mBodyParts.append(nullptr);
    mime.mMessage->mBody->mBodyParts.append(nullptr);
    const int last = mime.getMultiPartCount() - 1;
    EMAIL_MultiPart part(nullptr);
    EXPECT_TRUE(mime.getMultiPart(1, part));
    EXPECT_EQ(part.getSubMultiPartCount(), 2);
    EXPECT_FALSE(mime.getMultiPart(last, part));
    EXPECT_FALSE(mime.isCompleteMessage());
    RecordingFile file;
    EXPECT_EQ(mime.getICalendar(&file), 0);
    mime.makeHeaderSendable();
    EXPECT_EQ(mime.getMultiPartCount(), last + 1);
    EXPECT_TRUE(mime.mMessage->mBody->bodyPart(0)->mHeader->isAttDownloaded());
}

TEST(EMAIL_MIME, SendableSinglePartMessageKeepsItsBody)
{
    EMAIL_MIME mime(QByteArray("Bcc: a@b\r\nContent-Type: text/html\r\n\r\n<b>"));
    mime.makeHeaderSendable();
    EXPECT_EQ(mime.assemble(), "Content-Type: text/html\r\n\r\n<b>");
}

TEST(EMAIL_MIME, SendableMessageWithoutPartsKeepsItsTypeUnread)
{
    EMAIL_MIME mime;
    mime.setHeader("Content-Type: a\r\n");
    mime.makeHeaderSendable();
    EXPECT_EQ(mime.getHeader()->getField("Content-Type")->mParsed, 0);
    EXPECT_EQ(mime.assemble(), "Content-Type: a\r\n\r\n");
}

// Reading part i of a message-type message gives the enclosed message, whatever was added.
TEST(EMAIL_MIME, SendableMessageTypeRepeatsTheEnclosedMessage)
{
    EMAIL_MIME mime(QByteArray("Content-Type: message/rfc822\r\n\r\n"
                               "Content-Type: text/plain\r\n\r\nenclosed"));
    for (const char* body : {"1", "2"}) {
        const std::unique_ptr<EMAIL_MultiPart> part(textPart(body));
        mime.addMultiPart(*part, -1);
    }
    mime.makeHeaderSendable();
    EXPECT_EQ(bodiesOf(mime), "enclosedenclosed");
    EXPECT_EQ(mime.mMessage->mBody->bodyPart(1)->mParent, mime.mMessage->mBody);
}

TEST(EMAIL_MIME, NulStaysInABodyThatTravels)
{
    const QByteArray bytes("a\0b", 3);
    EMAIL_MIME mime(messageOf("multipart/mixed", {}));
    EMAIL_MultiPart part(nullptr);
    part.setType(TYPE_APPLICATION);
    part.setSubTypeStr(QStringLiteral("octet-stream"));
    part.setCTE(CTE_BINARY);
    part.setBody(bytes, true);
    mime.addMultiPart(part, 0);
    EXPECT_EQ(bodiesOf(mime), bytes);
    EXPECT_TRUE(QByteArray(mime.assemble()).contains(bytes));
    EMAIL_MultiPart copy(nullptr);
    ASSERT_TRUE(mime.getMultiPart(0, copy));
    EXPECT_EQ(copy.mBodyData, bytes);
}

namespace {

using Way = void (*)(EMAIL_MIME&);

class RefusedBody : public testing::TestWithParam<std::pair<const char*, Way>>
{
};

} // namespace

TEST_P(RefusedBody, FailsTheAssemblyUntilItIsSetAgain)
{
    EMAIL_MIME mime(messageOf("multipart/mixed", {nested, plain("2")}));
    EMAIL_MultiPart container(nullptr);
    ASSERT_TRUE(mime.getMultiPart(0, container));
    container.addSubMultiPart(refusedPart().release(), -1);
    mime.setMultiPart(container, 0, true);
    GetParam().second(mime);
    EXPECT_EQ(mime.mMessage->assemble(nullptr), -1);
    RecordingFile file;
    EXPECT_EQ(mime.assemble(&file), -1);
    EMAIL_MultiPart part(nullptr);
    ASSERT_TRUE(mime.getMultiPart(0, part));
    part.getSubMultiPart(2)->setBody(QByteArray("again"), true);
    mime.setMultiPart(part, 0, true);
    EXPECT_EQ(mime.mMessage->assemble(nullptr), 0);
}

INSTANTIATE_TEST_SUITE_P(Ways, RefusedBody,
                         testing::Values(std::pair("Added", Way([](EMAIL_MIME&) {})),
                                         std::pair("MadeSendable", Way([](EMAIL_MIME& mime) {
                                                       mime.makeHeaderSendable();
                                                   })),
                                         std::pair("ReadOutAndAdded", Way([](EMAIL_MIME& mime) {
                                                       EMAIL_MultiPart part(nullptr);
                                                       mime.getMultiPart(0, part);
                                                       mime.setMultiPart(EMAIL_MultiPart(part), 0,
                                                                         true);
                                                   })),
                                         std::pair("BesideARawBody", Way([](EMAIL_MIME& mime) {
                                                       mime.setRawBody(QStringLiteral("/dev/null"));
                                                   }))),
                         [](const auto& row) { return row.param.first; });

TEST(EMAIL_MIME, AFailedAssemblyLeavesTheTextsOfPartsInMemory)
{
    EMAIL_MIME mime(messageOf("multipart/mixed", {plain("1")}));
    const QCString before = mime.assemble();
    const EMAIL_BodyPart& first = *mime.mMessage->mBody->bodyPart(0);
    const QCString firstBefore = first.getMessage();
    first.mHeader->setSubject("changed");
    mime.addMultiPart(*refusedPart(), -1);
    EXPECT_EQ(mime.mMessage->assemble(nullptr), -1);
    EXPECT_EQ(first.getMessage(), firstBefore);
    EXPECT_EQ(mime.mMessage->getMessage(), before);
}

TEST(EMAIL_MIME, ARefusedBodyIsForgottenForOneInAFile)
{
    EMAIL_MIME mime(messageOf("multipart/mixed", {}));
    mime.addMultiPart(*refusedPart(), -1);
    const StoredFile stored("stored");
    mime.mMessage->mBody->bodyPart(0)->mBody->setBodyInfo(stored.path(), 0, 6, true);
    RecordingFile file;
    EXPECT_EQ(mime.assemble(&file), 0);
    EXPECT_TRUE(file.written().contains("\r\n\r\nstored\r\n"));
    EXPECT_EQ(mime.mMessage->assemble(nullptr), 0);
}

} // namespace email_mime_test
