// SPDX-License-Identifier: MIT
#include "tests/support/HugeBytes.h"
#include "tests/support/OpenResources.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_BasicMsg.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <type_traits>

namespace email_basic_msg_test {

namespace {

const QByteArray simpleMessage("From: a@b\r\nSubject: Hi\r\n\r\nText\r\n");

int fieldsNamed(const EMAIL_BasicMsg& message, const char* name)
{
    int count = 0;
    for (const EMAIL_Field* field : message.getHeader()->mFields)
        count += field->mName.lower() == QCString(name).lower() ? 1 : 0;
    return count;
}

QCString bodyOf(const EMAIL_BasicMsg& message, const char* name)
{
    const EMAIL_Field* field = message.getHeader()->getField(name);
    return field == nullptr ? QCString("(absent)") : field->mBody;
}

// A handle whose message was taken away.
class EmptyHandle : public EMAIL_BasicMsg
{
public:
    EmptyHandle()
    {
        delete mMessage;
        mMessage = nullptr;
    }
};

} // namespace

TEST(EMAIL_BasicMsg, IsAHandleThatIsNotCopied)
{
    static_assert(std::has_virtual_destructor_v<EMAIL_BasicMsg>);
    static_assert(!std::is_copy_constructible_v<EMAIL_BasicMsg>);
    static_assert(!std::is_copy_assignable_v<EMAIL_BasicMsg>);
    static_assert(std::is_standard_layout_v<QCString>);
}

TEST(EMAIL_BasicMsg, NewMessageIsEmpty)
{
    EMAIL_BasicMsg message;
    EXPECT_EQ(message.mCharset, CHARSET_UTF_8);
    ASSERT_NE(message.mMessage, nullptr);
    EXPECT_EQ(message.mLength, 0);
    EXPECT_EQ(message.getMessageLength(), 0);
    EXPECT_EQ(message.getHeader(), message.mMessage->mHeader);
    EXPECT_EQ(message.getHeader()->mFields.count(), 0) << "no default fields";
    EXPECT_EQ(message.assemble(), "");
}

TEST(EMAIL_BasicMsg, TextIsTakenAsLatin1AndParsedAtOnce)
{
    const EMAIL_BasicMsg message(QString::fromLatin1("Subject: \xe9t\xe9\r\n\r\nT\xe9xt"));
    EXPECT_EQ(message.mCharset, CHARSET_UTF_8);
    EXPECT_EQ(message.mLength, 20);
    EXPECT_EQ(bodyOf(message, "subject"), "\xe9t\xe9");
    EXPECT_EQ(message.mMessage->mBody->getMessage(), "T\xe9xt");
}

TEST(EMAIL_BasicMsg, BytesEndAtTheirFirstNul)
{
    const EMAIL_BasicMsg message(QByteArray("A: 1\r\n\r\nx\0yz", 12));
    EXPECT_EQ(message.mLength, 9);
    EXPECT_EQ(message.getMessageLength(), 9);
    EXPECT_EQ(bodyOf(message, "A"), "1");
    EXPECT_EQ(message.mMessage->mBody->getMessage(), "x");
}

TEST(EMAIL_BasicMsg, FileIsParsedInPlace)
{
    const StoredFile file(simpleMessage);
    const OpenResources before = OpenResources::of(file.path());
    EMAIL_BasicMsg message;
    EXPECT_EQ(message.parse(file.path()), 0);
    EXPECT_EQ(OpenResources::of(file.path()), before);
    EXPECT_EQ(message.mLength, int(simpleMessage.size()));
    EXPECT_EQ(bodyOf(message, "From"), "a@b");
    EXPECT_FALSE(message.isBodyInMemory());
    QString path;
    int offset = 0;
    int length = 0;
    bool encoded = false;
    message.getBodyInfo(path, offset, length, encoded);
    EXPECT_EQ(path, file.path());
    EXPECT_EQ(simpleMessage.mid(offset, length), "Text\r\n") << "no Content-Type, nothing is cut";
    EXPECT_TRUE(encoded);
}

TEST(EMAIL_BasicMsg, FileThatCannotBeMappedChangesNothing)
{
    const StoredFile file("");
    EMAIL_BasicMsg message(simpleMessage);
    const OpenResources before = OpenResources::of(file.path());
    for (const QString& path : {file.path(), file.missingPath(), QString(), QStringLiteral("/")}) {
        EXPECT_EQ(message.parse(path), -1) << qPrintable(path);
        EXPECT_EQ(message.mLength, int(simpleMessage.size()));
        EXPECT_EQ(message.getHeader()->mFields.count(), 2);
    }
    EXPECT_EQ(OpenResources::of(file.path()), before);
}

TEST(EMAIL_BasicMsg, FileOfTwoGigabytesIsRefused)
{
    const StoredFile file(simpleMessage);
    ASSERT_TRUE(QFile::resize(file.path(), qint64(1) << 31)) << "a file with a hole";
    const OpenResources before = OpenResources::of(file.path());
    EMAIL_BasicMsg message;
    EXPECT_EQ(message.parse(file.path()), -1);
    EXPECT_EQ(message.mLength, 0);
    EXPECT_EQ(OpenResources::of(file.path()), before);
    ASSERT_TRUE(QFile::resize(file.path(), (qint64(1) << 32) + simpleMessage.size()));
    EXPECT_EQ(message.parse(file.path()), -1) << "the size does not wrap around";
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
TEST(EMAIL_BasicMsg, TextOfTwoGigabytesGivesAnEmptyMessage)
{
    const HugeBytes bytes;
    if (!bytes.isMapped())
        GTEST_SKIP() << "no address space";
    const EMAIL_BasicMsg fromBytes(QByteArray::fromRawData(bytes.data(), qsizetype(1) << 31));
    EXPECT_EQ(fromBytes.mLength, 0);
    EXPECT_EQ(fromBytes.getHeader()->mFields.count(), 0);
    const EMAIL_BasicMsg fromText(QString::fromRawData(
        static_cast<const QChar*>(static_cast<const void*>(bytes.data())), qsizetype(1) << 31));
    EXPECT_EQ(fromText.mLength, 0);
    EXPECT_EQ(fromText.getHeader()->mFields.count(), 0);
}
#endif

TEST(EMAIL_BasicMsg, FileIsAppendedToTheFieldsThatAreThere)
{
    const StoredFile file("Subject: new\r\nX-A: 1\r\n\r\n");
    EMAIL_BasicMsg message(simpleMessage);
    EXPECT_EQ(message.parse(file.path()), 0);
    EXPECT_EQ(fieldsNamed(message, "Subject"), 2);
    EXPECT_EQ(bodyOf(message, "Subject"), "Hi") << "lookups find the older field";
    EXPECT_EQ(bodyOf(message, "X-A"), "1");
}

TEST(EMAIL_BasicMsg, AssemblesIntoTextAndFile)
{
    EMAIL_BasicMsg message(simpleMessage);
    const QCString& text = message.assemble();
    EXPECT_EQ(text, simpleMessage);
    EXPECT_EQ(&text, &message.mMessage->mString);

    const StoredFile target("");
    QFile file(target.path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(message.assemble(&file), 0);
    file.close();
    EXPECT_EQ(contentOf(target.path()), simpleMessage);
}

TEST(EMAIL_BasicMsg, AssemblesIntoAnEmptyTextWhereItFails)
{
    EMAIL_BasicMsg message(simpleMessage);
    message.assemble();
    EMAIL_ContentType& type = *message.getHeader()->contentType();
    type.setName(QByteArray(1 << 21, 'x'));
    EXPECT_EQ(message.assemble().length(), 0) << "not the text of before";
    type.setName("1");
    EXPECT_EQ(message.assemble(), "From: a@b\r\nSubject: Hi\r\n"
                                  "Content-Type: text/plain;\r\n\tname=1\r\n\r\nText\r\n");
}

TEST(EMAIL_BasicMsg, FullDiskFailsTheAssembly)
{
    QFile full(QStringLiteral("/dev/full"));
    ASSERT_TRUE(full.open(QIODevice::WriteOnly));
    EMAIL_BasicMsg message(simpleMessage);
    EXPECT_EQ(message.assemble(&full), -1);
}

TEST(EMAIL_BasicMsg, MissingBodyFileFailsTheAssembly)
{
    const StoredFile target("");
    EMAIL_BasicMsg message(simpleMessage);
    message.setBodyInfo(target.missingPath(), 0, 4, true);
    QFile file(target.path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const OpenResources before = OpenResources::of(target.path());
    EXPECT_EQ(message.assemble(&file), -1);
    EXPECT_EQ(OpenResources::of(target.path()), before);
}

TEST(EMAIL_BasicMsg, HeaderTextIsTheOneLastParsedOrAssembled)
{
    EMAIL_BasicMsg message(simpleMessage);
    message.setSubject(QStringLiteral("Other"));
    EXPECT_EQ(message.headerAsString(), QStringLiteral("From: a@b\r\nSubject: Hi\r\n"));
    message.assemble();
    EXPECT_EQ(message.headerAsString(), QStringLiteral("From: a@b\r\nSubject: Other\r\n"));
    const EMAIL_BasicMsg eightBit(QByteArray("A: \xe9\r\n\r\n"));
    EXPECT_EQ(eightBit.headerAsString(), QString::fromLatin1("A: \xe9\r\n"));
}

TEST(EMAIL_BasicMsg, SetHeaderAppendsFields)
{
    EMAIL_BasicMsg message(simpleMessage);
    message.setHeader("Subject: Second\r\nX-A: 1\r\n");
    EXPECT_EQ(message.getHeader()->getMessage(), "Subject: Second\r\nX-A: 1\r\n");
    EXPECT_EQ(fieldsNamed(message, "Subject"), 2);
    EXPECT_EQ(message.getSubject(0), QStringLiteral("Hi")) << "the older field is found first";
    EXPECT_EQ(bodyOf(message, "X-A"), "1");
}

TEST(EMAIL_BasicMsg, DefaultFieldsNameThisClient)
{
    EMAIL_BasicMsg message;
    message.setDefaultFileds();
    EXPECT_EQ(message.assemble(), "X-Mailer: Kelda-Tarvo\r\nMime-Version: 1.0\r\n\r\n");
}

TEST(EMAIL_BasicMsg, SendableHeaderHasNoBookkeepingAndNoBcc)
{
    EMAIL_BasicMsg message(QByteArray("To: a@b\r\nBcc: c@d\r\nX-QRN-DSN: 1\r\n"
                                      "X-QRN-Message-Body-Size: 9\r\nX-MESSAGE-PARTID: 2\r\n\r\n"));
    message.makeHeaderSendable();
    EXPECT_EQ(message.assemble(), "To: a@b\r\nX-MESSAGE-PARTID: 2\r\n\r\n");
}

TEST(EMAIL_BasicMsg, ReceiptRequestIsWrittenInBothForms)
{
    EMAIL_BasicMsg message;
    QCString address("untouched");
    EXPECT_EQ(message.needReadReceipt(address), 0);
    EXPECT_EQ(address, "untouched");
    message.addReceiptRequest(QString::fromLatin1("J\xf6rg <j@x>"));
    EXPECT_EQ(bodyOf(message, "Disposition-Notification-To"), "J\xf6rg <j@x>") << "not encoded";
    EXPECT_EQ(bodyOf(message, "Return-Receipt-To"), "J\xf6rg <j@x>");
    message.addReceiptRequest(QStringLiteral("k@x"));
    EXPECT_EQ(message.getHeader()->mFields.count(), 2);
    EXPECT_EQ(message.needReadReceipt(address), 1);
    EXPECT_EQ(address, "k@x");
    message.removeReceiptRequest();
    EXPECT_EQ(message.getHeader()->mFields.count(), 0);
    EXPECT_EQ(message.needReadReceipt(address), 0);
}

TEST(EMAIL_BasicMsg, NewerReceiptFieldComesFirst)
{
    QCString address;
    const EMAIL_BasicMsg both(
        QByteArray("Return-Receipt-To: old@x\r\nDisposition-Notification-To: new@x\r\n\r\n"));
    EXPECT_EQ(both.needReadReceipt(address), 1);
    EXPECT_EQ(address, "new@x");
    const EMAIL_BasicMsg older(QByteArray("Return-Receipt-To: old@x\r\n\r\n"));
    EXPECT_EQ(older.needReadReceipt(address), 1);
    EXPECT_EQ(address, "old@x");
}

TEST(EMAIL_BasicMsg, DeliveryNotificationIsOneField)
{
    EMAIL_BasicMsg message;
    EXPECT_FALSE(message.getXSendDsn());
    message.setXSendDsn(true);
    message.setXSendDsn(true);
    EXPECT_TRUE(message.getXSendDsn());
    EXPECT_EQ(fieldsNamed(message, "X-QRN-DSN"), 1);
    EXPECT_EQ(bodyOf(message, "X-QRN-DSN"), "1");
    message.setXSendDsn(false);
    EXPECT_FALSE(message.getXSendDsn());
    EXPECT_EQ(fieldsNamed(message, "X-QRN-DSN"), 0);

    EMAIL_BasicMsg other(QByteArray("X-QRN-DSN: 0\r\n\r\n"));
    EXPECT_TRUE(other.getXSendDsn()) << "presence counts";
    other.setXSendDsn(true);
    EXPECT_EQ(bodyOf(other, "X-QRN-DSN"), "0") << "added only when absent";
}

TEST(EMAIL_BasicMsg, SmartSendInfoRoundTrips)
{
    EMAIL_BasicMsg message;
    unsigned int folder = 7;
    unsigned int reference = 7;
    unsigned int length = 7;
    int type = 7;
    EXPECT_EQ(message.getSmartSendInfo(folder, reference, length, type), 0);
    EXPECT_EQ(folder, 0U);
    EXPECT_EQ(reference, 0U);
    EXPECT_EQ(length, 0U);
    EXPECT_EQ(type, 0);
    EXPECT_EQ(message.getOperation(), -1);

    message.setSmartSendInfo(4294967295U, 1, 2, -3);
    EXPECT_EQ(message.getSmartSendInfo(folder, reference, length, type), 0);
    EXPECT_EQ(folder, 4294967295U);
    EXPECT_EQ(reference, 1U);
    EXPECT_EQ(length, 2U);
    EXPECT_EQ(type, -3);
    EXPECT_EQ(message.getOperation(), -3);
    message.removeSmartDataInfo();
    EXPECT_EQ(message.getHeader()->mFields.count(), 0);
}

TEST(EMAIL_BasicMsg, TruncationInfoIsForwarded)
{
    EMAIL_BasicMsg message;
    bool ok = true;
    EXPECT_EQ(message.getBodySize(&ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(message.getBodyTruncated(&ok), -1);
    EXPECT_TRUE(ok);
    message.setBodySize(1234);
    message.setBodyTruncated(1);
    EXPECT_EQ(message.getBodySize(&ok), 1234);
    EXPECT_TRUE(ok);
    EXPECT_EQ(message.getBodyTruncated(), 1);
    message.removeBodyTruncatedInfo();
    EXPECT_EQ(message.getHeader()->mFields.count(), 0);
}

TEST(EMAIL_BasicMsg, HandleWithoutAMessageReadsAsAnEmptyOne)
{
    const EmptyHandle handle;
    QCString bytes("x");
    QString text(QStringLiteral("x"));
    bool ok = false;
    unsigned int number = 7;
    int type = 7;
    EXPECT_EQ(handle.getHeader(), nullptr);
    EXPECT_TRUE(handle.headerAsString().isEmpty());
    for (const auto getter :
         {&EMAIL_BasicMsg::getFrom, &EMAIL_BasicMsg::getTo, &EMAIL_BasicMsg::getCc,
          &EMAIL_BasicMsg::getBcc, &EMAIL_BasicMsg::getReplyTo, &EMAIL_BasicMsg::getSubject,
          &EMAIL_BasicMsg::getFileName, &EMAIL_BasicMsg::getName})
        EXPECT_TRUE((handle.*getter)(0).isEmpty());
    for (const auto getter :
         {&EMAIL_BasicMsg::getSender, &EMAIL_BasicMsg::getXMailer, &EMAIL_BasicMsg::getMimeVersion,
          &EMAIL_BasicMsg::getRawDateStr, &EMAIL_BasicMsg::getDateStr, &EMAIL_BasicMsg::getTypeStr,
          &EMAIL_BasicMsg::getSubTypeStr, &EMAIL_BasicMsg::getMethod})
        EXPECT_TRUE((handle.*getter)().isEmpty());
    EXPECT_EQ(handle.getDate(), 0UL);
    EXPECT_EQ(handle.getXPriority(), 3);
    EXPECT_EQ(handle.getType(), 0);
    EXPECT_EQ(handle.getSubType(), 0);
    EXPECT_EQ(handle.getCharset(), CHARSET_US_ASCII);
    EXPECT_EQ(handle.getCTE(), CTE_7BIT);
    EXPECT_EQ(handle.needReadReceipt(bytes), 0);
    EXPECT_FALSE(handle.getXSendDsn());
    EXPECT_EQ(handle.getSmartSendInfo(number, number, number, type), 0);
    EXPECT_EQ(handle.getOperation(), -1);
    EXPECT_EQ(handle.getBodySize(&ok), 0);
    EXPECT_EQ(handle.getBodyTruncated(&ok), -1);
    EXPECT_TRUE(ok);
    EXPECT_TRUE(handle.isBodyInMemory());
    EXPECT_TRUE(handle.getBody(0).isEmpty());
    EXPECT_EQ(handle.getBody(text, 0), 0);
    EXPECT_TRUE(text.isEmpty());
}

// Qt tells an empty text from a null one.
TEST(EMAIL_BasicMsg, HandleWithoutAMessageAnswersWithTheTextsOfAnEmptyOne)
{
    const EmptyHandle handle;
    const EMAIL_BasicMsg message;
    using Getter = QString (EMAIL_BasicMsg::*)() const;
    const std::pair<const char*, Getter> getters[] = {
        {"headerAsString", &EMAIL_BasicMsg::headerAsString},
        {"getSender", &EMAIL_BasicMsg::getSender},
        {"getXMailer", &EMAIL_BasicMsg::getXMailer},
        {"getMimeVersion", &EMAIL_BasicMsg::getMimeVersion},
        {"getRawDateStr", &EMAIL_BasicMsg::getRawDateStr},
        {"getDateStr", &EMAIL_BasicMsg::getDateStr},
        {"getTypeStr", &EMAIL_BasicMsg::getTypeStr},
        {"getSubTypeStr", &EMAIL_BasicMsg::getSubTypeStr},
        {"getMethod", &EMAIL_BasicMsg::getMethod}};
    for (const auto& [name, getter] : getters) {
        EXPECT_TRUE((handle.*getter)().isEmpty()) << name;
        EXPECT_EQ((handle.*getter)().isNull(), (message.*getter)().isNull()) << name;
    }
}

TEST(EMAIL_BasicMsg, HandleWithoutAMessageIgnoresSetters)
{
    const StoredFile file(simpleMessage);
    EmptyHandle handle;
    handle.setDefaultFileds();
    handle.setHeader("A: 1\r\n");
    handle.makeHeaderSendable();
    for (const auto setter :
         {&EMAIL_BasicMsg::setFrom, &EMAIL_BasicMsg::setTo, &EMAIL_BasicMsg::setCc,
          &EMAIL_BasicMsg::setBcc, &EMAIL_BasicMsg::setReplyTo, &EMAIL_BasicMsg::setSender,
          &EMAIL_BasicMsg::setSubject, &EMAIL_BasicMsg::setXMailer, &EMAIL_BasicMsg::setMimeVersion,
          &EMAIL_BasicMsg::setTypeStr, &EMAIL_BasicMsg::setSubTypeStr, &EMAIL_BasicMsg::setMethod,
          &EMAIL_BasicMsg::addReceiptRequest})
        (handle.*setter)(QStringLiteral("x"));
    for (const auto setter :
         {&EMAIL_BasicMsg::setXPriority, &EMAIL_BasicMsg::setType, &EMAIL_BasicMsg::setSubType,
          &EMAIL_BasicMsg::setCharset, &EMAIL_BasicMsg::setCTE, &EMAIL_BasicMsg::setBodyTruncated})
        (handle.*setter)(1);
    handle.setDate(1);
    handle.removeReceiptRequest();
    handle.setXSendDsn(true);
    handle.setXSendDsn(false);
    handle.setSmartSendInfo(1, 2, 3, 4);
    handle.removeSmartDataInfo();
    handle.setBodySize(1);
    handle.removeBodyTruncatedInfo();
    handle.setBody(QStringLiteral("x"), true);
    handle.setBody(QByteArray("x"));
    handle.setBodyInfo(file.path(), 0, 1, true);
    EXPECT_EQ(handle.mMessage, nullptr);
    EXPECT_EQ(handle.assemble(), "");
    EXPECT_EQ(handle.parse(file.path()), -1);
    QFile target(file.path());
    ASSERT_TRUE(target.open(QIODevice::ReadWrite));
    EXPECT_EQ(handle.assemble(&target), -1);
    EXPECT_EQ(handle.getBody(&target), 0) << "an empty body is written";
    EXPECT_EQ(contentOf(file.path()), simpleMessage);
}

} // namespace email_basic_msg_test
