// SPDX-License-Identifier: MIT
#include "tests/support/RowNames.h"
#include "utility/EMAIL_BasicMsg.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <ctime>

namespace email_basic_msg_header_test {

namespace {

QCString bodyOf(const EMAIL_BasicMsg& message, const char* name)
{
    const EMAIL_Field* field = message.getHeader()->getField(name);
    return field == nullptr ? QCString("(absent)") : field->mBody;
}

QString getSender(const EMAIL_BasicMsg& message, int)
{
    return message.getSender();
}

struct TextField
{
    const char* name;
    std::function<QString(const EMAIL_BasicMsg&, int)> get;
    void (EMAIL_BasicMsg::*set)(const QString&);
    bool isAddress;
};

void PrintTo(const TextField& row, std::ostream* out)
{
    *out << row.name;
}

class EncodedField : public testing::TestWithParam<TextField>
{
protected:
    static EMAIL_BasicMsg* messageWith(const QByteArray& body)
    {
        return new EMAIL_BasicMsg(QByteArray(GetParam().name) + ": " + body + "\r\n\r\n");
    }
};

const QString joerg = QString::fromUtf8("J\xc3\xb6rg <jr@x.de>");

} // namespace

TEST_P(EncodedField, IsEmptyWhenAbsent)
{
    const EMAIL_BasicMsg message;
    EXPECT_TRUE(GetParam().get(message, CHARSET_UTF_8).isEmpty());
}

TEST_P(EncodedField, IsDecodedAsAWholeAndLeftAsItIs)
{
    const QByteArray body("=?utf-8?B?SsO2cmc=?= <jr@x.de>,  b@c");
    const std::unique_ptr<EMAIL_BasicMsg> message(messageWith(body));
    EXPECT_EQ(GetParam().get(*message, CHARSET_UTF_8),
              QString::fromUtf8("J\xc3\xb6rg<jr@x.de>,  b@c"));
    EXPECT_EQ(message->getHeader()->getField(GetParam().name)->mParsed, 0);
    EXPECT_EQ(bodyOf(*message, GetParam().name), body);
}

TEST_P(EncodedField, UndeclaredTextIsReadInTheCharsetGiven)
{
    const std::unique_ptr<EMAIL_BasicMsg> message(messageWith("\xe9 <a@b>"));
    // The getter of Sender takes no charset.
    if (QByteArray(GetParam().name) != "Sender") {
        EXPECT_EQ(GetParam().get(*message, CHARSET_ISO_8859_1), QString::fromLatin1("\xe9 <a@b>"));
    }
    const std::unique_ptr<EMAIL_BasicMsg> chinese(messageWith("\xd6\xd0 <a@b>"));
    EXPECT_EQ(GetParam().get(*chinese, CHARSET_UNKNOWN), QString::fromUtf8("\xe4\xb8\xad <a@b>"));
}

TEST_P(EncodedField, AsciiIsWrittenAsItIs)
{
    EMAIL_BasicMsg message;
    (message.*GetParam().set)(QStringLiteral("Ann <a@b>"));
    EXPECT_EQ(bodyOf(message, GetParam().name), "Ann <a@b>");
    EXPECT_EQ(GetParam().get(message, CHARSET_UTF_8), QStringLiteral("Ann <a@b>"));
    EXPECT_EQ(message.assemble(), QByteArray(GetParam().name) + ": Ann <a@b>\r\n\r\n");
}

// 1. Reply-To and Subject go through the encoder of whole texts, the other address fields through
//    that of addresses.
TEST_P(EncodedField, OtherTextIsEncodedInUtf8)
{
    EMAIL_BasicMsg message;
    (message.*GetParam().set)(joerg);
    const QCString expected =
        GetParam().isAddress ? "=?utf-8?b?SsO2cmcg?=<jr@x.de>" : "=?utf-8?b?SsO2cmcgPGpyQHguZGU+?=";
    EXPECT_EQ(bodyOf(message, GetParam().name), expected);
    EXPECT_EQ(GetParam().get(message, CHARSET_UTF_8), joerg);
}

TEST_P(EncodedField, SettingAgainReplaces)
{
    EMAIL_BasicMsg message;
    (message.*GetParam().set)(QStringLiteral("a@b"));
    (message.*GetParam().set)(QStringLiteral("c@d, e@f"));
    EXPECT_EQ(message.getHeader()->mFields.count(), 1);
    EXPECT_EQ(GetParam().get(message, CHARSET_UTF_8), QStringLiteral("c@d, e@f"));
    (message.*GetParam().set)(QString());
    EXPECT_TRUE(GetParam().get(message, CHARSET_UTF_8).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EncodedField,
    testing::Values(
        TextField{"From", &EMAIL_BasicMsg::getFrom, &EMAIL_BasicMsg::setFrom, true},
        TextField{"To", &EMAIL_BasicMsg::getTo, &EMAIL_BasicMsg::setTo, true},
        TextField{"Cc", &EMAIL_BasicMsg::getCc, &EMAIL_BasicMsg::setCc, true},
        TextField{"Bcc", &EMAIL_BasicMsg::getBcc, &EMAIL_BasicMsg::setBcc, true},
        TextField{"Reply-To", &EMAIL_BasicMsg::getReplyTo, &EMAIL_BasicMsg::setReplyTo, false},
        TextField{"Sender", getSender, &EMAIL_BasicMsg::setSender, true},
        TextField{"Subject", &EMAIL_BasicMsg::getSubject, &EMAIL_BasicMsg::setSubject, false}),
    rowName<TextField>);

TEST(EMAIL_BasicMsgHeader, ReplyToAndFromAreWrittenDifferently)
{
    EMAIL_BasicMsg message;
    message.setFrom(joerg);
    message.setReplyTo(joerg);
    EXPECT_NE(bodyOf(message, "From"), bodyOf(message, "Reply-To"));
    EXPECT_EQ(message.getFrom(0), message.getReplyTo(0));
}

TEST(EMAIL_BasicMsgHeader, PlainValuesAreLatin1)
{
    EMAIL_BasicMsg message;
    EXPECT_TRUE(message.getXMailer().isEmpty());
    EXPECT_TRUE(message.getMimeVersion().isEmpty());
    const QString value = QString::fromLatin1("caf\xe9");
    message.setXMailer(value);
    message.setMimeVersion(value);
    EXPECT_EQ(bodyOf(message, "X-Mailer"), "caf\xe9");
    EXPECT_EQ(bodyOf(message, "Mime-Version"), "caf\xe9");
    EXPECT_EQ(message.getXMailer(), value);
    EXPECT_EQ(message.getMimeVersion(), value);
}

class MessageDate : public testing::Test
{
protected:
    MessageDate() : mZone(qgetenv("TZ"))
    {
        qputenv("TZ", "UTC");
        tzset();
    }
    ~MessageDate() override
    {
        if (mZone.isNull())
            qunsetenv("TZ");
        else
            qputenv("TZ", mZone);
        tzset();
    }

private:
    QByteArray mZone;
};

TEST_F(MessageDate, IsZeroAndEmptyWhenAbsent)
{
    const EMAIL_BasicMsg message;
    EXPECT_EQ(message.getDate(), 0UL);
    EXPECT_TRUE(message.getRawDateStr().isEmpty());
    EXPECT_TRUE(message.getDateStr().isEmpty());
}

TEST_F(MessageDate, IsReadFromTheField)
{
    const EMAIL_BasicMsg message(QByteArray("Date: Tue, 3 Mar 2020 14:05:00 +0000 (x)\r\n\r\n"));
    EXPECT_EQ(message.getRawDateStr(), QStringLiteral("Tue, 3 Mar 2020 14:05:00 +0000 (x)"));
    EXPECT_EQ(message.getHeader()->getField("Date")->mParsed, 0) << "not parsed for its text";
    EXPECT_EQ(message.getDate(), 1583244300UL);
    EXPECT_EQ(message.getDateStr(), QStringLiteral("02:05 pm 03/03"));
}

TEST_F(MessageDate, IsWrittenOnAssembly)
{
    EMAIL_BasicMsg message;
    message.setDate(1583244300UL);
    EXPECT_EQ(message.getDate(), 1583244300UL);
    EXPECT_EQ(message.assemble(), "Date: Tue, 3 Mar 2020 14:05:00 +0000\r\n\r\n");
    EXPECT_EQ(message.getRawDateStr(), QStringLiteral("Tue, 3 Mar 2020 14:05:00 +0000"));
}

TEST_F(MessageDate, ZeroMeansNow)
{
    EMAIL_BasicMsg message;
    const auto before = static_cast<unsigned long>(std::time(nullptr));
    message.setDate(0);
    EXPECT_GE(message.getDate(), before);
    EXPECT_LE(message.getDate(), static_cast<unsigned long>(std::time(nullptr)));
}

namespace {

struct PriorityRow
{
    const char* name;
    const char* header;
    int priority;
};

void PrintTo(const PriorityRow& row, std::ostream* out)
{
    *out << row.name;
}

class ReadPriority : public testing::TestWithParam<PriorityRow>
{
};

struct NumberRow
{
    int set;
    const char* body;
};

class WritePriority : public testing::TestWithParam<NumberRow>
{
};

} // namespace

TEST_P(ReadPriority, HasThreeSteps)
{
    const EMAIL_BasicMsg message(QByteArray(GetParam().header) + "\r\n");
    EXPECT_EQ(message.getXPriority(), GetParam().priority);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadPriority,
                         testing::Values(PriorityRow{"absent", "", 3},
                                         PriorityRow{"0", "X-Priority: 0\r\n", 1},
                                         PriorityRow{"1", "X-Priority: 1\r\n", 1},
                                         PriorityRow{"2", "X-Priority: 2 (High)\r\n", 1},
                                         PriorityRow{"3", "X-Priority: 3\r\n", 3},
                                         PriorityRow{"4", "X-Priority: 4\r\n", 3},
                                         PriorityRow{"5", "X-Priority: 5\r\n", 5},
                                         PriorityRow{"7", "X-Priority: 7\r\n", 5},
                                         PriorityRow{"unreadable", "X-Priority: urgent\r\n", 3},
                                         PriorityRow{"comment only", "X-Priority: (High)\r\n", 3}),
                         rowName<PriorityRow>);

TEST_P(WritePriority, HasThreeSteps)
{
    EMAIL_BasicMsg message;
    message.setXPriority(GetParam().set);
    EXPECT_EQ(bodyOf(message, "X-Priority"), GetParam().body);
}

INSTANTIATE_TEST_SUITE_P(Rows, WritePriority,
                         testing::Values(NumberRow{-1, "1"}, NumberRow{0, "1"}, NumberRow{1, "1"},
                                         NumberRow{2, "1"}, NumberRow{3, "3"}, NumberRow{4, "3"},
                                         NumberRow{5, "5"}, NumberRow{6, "5"}));

TEST(EMAIL_BasicMsgHeader, ContentTypeIsNeutralWhenAbsent)
{
    const EMAIL_BasicMsg message;
    EXPECT_EQ(message.getType(), 0);
    EXPECT_EQ(message.getSubType(), 0);
    EXPECT_TRUE(message.getTypeStr().isEmpty());
    EXPECT_TRUE(message.getSubTypeStr().isEmpty());
    EXPECT_EQ(message.getCharset(), CHARSET_US_ASCII);
    EXPECT_TRUE(message.getFileName(0).isEmpty());
    EXPECT_EQ(message.getHeader()->mFields.count(), 0) << "nothing is created by reading";
}

TEST(EMAIL_BasicMsgHeader, ContentTypeIsRead)
{
    const EMAIL_BasicMsg message(QByteArray("Content-Type: TEXT/Calendar; CHARSET=\"UTF-8\"; "
                                            "method=REQUEST; name=\"=?utf-8?b?w6k=?=.ics\"\r\n"
                                            "\r\n"));
    EXPECT_EQ(message.getType(), TYPE_TEXT);
    EXPECT_EQ(message.getSubType(), 4);
    EXPECT_EQ(message.getTypeStr(), QStringLiteral("TEXT"));
    EXPECT_EQ(message.getSubTypeStr(), QStringLiteral("Calendar"));
    EXPECT_EQ(message.getCharset(), CHARSET_UTF_8);
    EXPECT_EQ(message.getMethod(), QStringLiteral("request")) << "in lower case";
    EXPECT_EQ(message.getFileName(0), QString::fromUtf8("\xc3\xa9.ics"));
}

TEST(EMAIL_BasicMsgHeader, FieldWithoutCharsetHasAnUnknownOne)
{
    const EMAIL_BasicMsg message(QByteArray("Content-Type: text/html; name=\"\"\r\n\r\n"));
    EXPECT_EQ(message.getCharset(), CHARSET_UNKNOWN);
}

TEST(EMAIL_BasicMsgHeader, TypeSettersCreateAndRewriteTheField)
{
    EMAIL_BasicMsg message;
    message.setType(TYPE_IMAGE);
    EXPECT_EQ(message.getTypeStr(), QStringLiteral("image"));
    message.setSubTypeStr(QStringLiteral("X-Odd"));
    EXPECT_EQ(message.getSubType(), 0);
    EXPECT_EQ(message.assemble(), "Content-Type: image/X-Odd\r\n\r\n");
    message.setTypeStr(QStringLiteral("Text"));
    message.setSubType(3);
    EXPECT_EQ(message.getType(), TYPE_TEXT);
    EXPECT_EQ(message.getSubTypeStr(), QStringLiteral("html"));
    message.setCharset(CHARSET_UTF_8);
    message.setMethod(QStringLiteral("REPLY"));
    EXPECT_EQ(message.getCharset(), CHARSET_UTF_8);
    EXPECT_EQ(message.getMethod(), QStringLiteral("reply"));
    EXPECT_EQ(message.assemble(),
              "Content-Type: Text/html;\r\n\tcharset=utf-8;\r\n\tmethod=REPLY\r\n\r\n");
}

TEST(EMAIL_BasicMsgHeader, ReadingTheMethodCreatesTheField)
{
    const EMAIL_BasicMsg message;
    EXPECT_TRUE(message.getMethod().isEmpty());
    EXPECT_EQ(message.getHeader()->mFields.count(), 1);
}

TEST(EMAIL_BasicMsgHeader, TransferEncodingIsTheHeaders)
{
    EMAIL_BasicMsg message;
    EXPECT_EQ(message.getCTE(), CTE_7BIT);
    message.setCTE(CTE_BASE64);
    EXPECT_EQ(message.getCTE(), CTE_BASE64);
    EXPECT_EQ(bodyOf(message, "Content-Transfer-Encoding"), "base64");
    const EMAIL_BasicMsg odd(QByteArray("Content-Transfer-Encoding: x-uuencode\r\n\r\n"));
    EXPECT_EQ(odd.getCTE(), CTE_UNKNOWN);
}

TEST(EMAIL_BasicMsgHeader, NameIsTheFileNameOfTheDisposition)
{
    const EMAIL_BasicMsg message(
        QByteArray("Content-Type: image/png; name=a.png\r\n"
                   "Content-Disposition: attachment; filename=\"=?utf-8?b?w6k=?=.png\"\r\n\r\n"));
    EXPECT_EQ(message.getFileName(0), QStringLiteral("a.png"));
    EXPECT_EQ(message.getName(0), QString::fromUtf8("\xc3\xa9.png"));
    const EMAIL_BasicMsg unnamed(QByteArray("Content-Disposition: inline\r\n\r\n"));
    EXPECT_TRUE(unnamed.getName(0).isEmpty());
    const EMAIL_BasicMsg absent;
    EXPECT_TRUE(absent.getName(0).isEmpty());
    const EMAIL_BasicMsg latin(QByteArray("Content-Disposition: inline; filename=\"\xe9.txt\"\r\n"
                                          "\r\n"));
    EXPECT_EQ(latin.getName(CHARSET_ISO_8859_1), QString::fromLatin1("\xe9.txt"));
}

} // namespace email_basic_msg_header_test
