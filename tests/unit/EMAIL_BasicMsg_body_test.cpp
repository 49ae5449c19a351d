// SPDX-License-Identifier: MIT
#include "tests/support/OpenResources.h"
#include "tests/support/RecordingFile.h"
#include "tests/support/RowNames.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_BasicMsg.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

namespace email_basic_msg_body_test {

namespace {

QCString bodyOf(const EMAIL_BasicMsg& message)
{
    return message.mMessage->mBody->getMessage();
}

const QString eAcute = QString::fromLatin1("caf\xe9");
const QString greek = QString::fromUtf8("\xce\xb1\xce\xb2");

struct TextRow
{
    const char* name;
    const char* header;
    QString text;
    const char* newHeader;
    QCString body;
};

void PrintTo(const TextRow& row, std::ostream* out)
{
    *out << row.name;
}

class SetText : public testing::TestWithParam<TextRow>
{
};

} // namespace

TEST_P(SetText, ChoosesCharsetAndEncoding)
{
    EMAIL_BasicMsg message(QByteArray(GetParam().header) + "\r\nold");
    message.setBody(GetParam().text, true);
    EXPECT_EQ(bodyOf(message), GetParam().body);
    EXPECT_TRUE(message.isBodyInMemory());
    QString read;
    EXPECT_EQ(message.getBody(read, 0), 0);
    EXPECT_EQ(read, GetParam().text);
    EXPECT_EQ(message.getBody(0), GetParam().text);
    message.getHeader()->assemble();
    EXPECT_EQ(message.getHeader()->getMessage(), GetParam().newHeader);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SetText,
    testing::Values(
        TextRow{"ascii drops the transfer encoding",
                "Content-Type: text/html; charset=utf-8\r\nContent-Transfer-Encoding: base64\r\n",
                QStringLiteral("<b>x</b>"), "Content-Type: text/html;\r\n\tcharset=us-ascii\r\n",
                "<b>x</b>"},
        TextRow{"ascii in a new message", "", QStringLiteral("Hi"),
                "Content-Type: text/plain;\r\n\tcharset=us-ascii\r\n", "Hi"},
        TextRow{"empty changes the text only",
                "Content-Type: text/html; charset=utf-8\r\nContent-Transfer-Encoding: base64\r\n",
                QString(),
                "Content-Type: text/html;\r\n\tcharset=utf-8\r\n"
                "Content-Transfer-Encoding: base64\r\n",
                ""},
        TextRow{"latin letter leaves us-ascii for iso-8859-1", "", eAcute,
                "Content-Type: text/plain;\r\n\tcharset=iso-8859-1\r\n"
                "Content-Transfer-Encoding: base64\r\n",
                "Y2Fm6Q==\r\n"},
        TextRow{"greek needs utf-8", "", greek,
                "Content-Type: text/plain;\r\n\tcharset=utf-8\r\n"
                "Content-Transfer-Encoding: base64\r\n",
                "zrHOsg==\r\n"},
        TextRow{"fitting charset is kept", "Content-Type: text/plain; charset=iso-8859-7\r\n",
                greek,
                "Content-Type: text/plain;\r\n\tcharset=iso-8859-7\r\n"
                "Content-Transfer-Encoding: base64\r\n",
                "4eI=\r\n"},
        TextRow{
            "transfer encoding is kept",
            "Content-Type: text/html; charset=iso-8859-1\r\nContent-Transfer-Encoding: 8bit\r\n",
            eAcute,
            "Content-Type: text/html;\r\n\tcharset=iso-8859-1\r\n"
            "Content-Transfer-Encoding: 8bit\r\n",
            "caf\xe9"},
        TextRow{"unknown charset becomes utf-8", "Content-Type: text/html; charset=odd\r\n", eAcute,
                "Content-Type: text/html;\r\n\tcharset=utf-8\r\n"
                "Content-Transfer-Encoding: base64\r\n",
                "Y2Fmw6k=\r\n"},
        TextRow{"unknown type becomes text-plain", "Content-Type: odd/thing\r\n", eAcute,
                "Content-Type: text/plain;\r\n\tcharset=utf-8\r\n"
                "Content-Transfer-Encoding: base64\r\n",
                "Y2Fmw6k=\r\n"}),
    rowName<TextRow>);

// The quoted-printable encoder ends every text with a line break, which belongs to the body then.
TEST(EMAIL_BasicMsgBody, MostlyAsciiTextIsQuotedPrintable)
{
    EMAIL_BasicMsg message;
    message.setBody(QStringLiteral("abcdefghijklmnopqrstuvwxyz") + QChar(0xe9), true);
    EXPECT_EQ(message.getCTE(), CTE_QUOTED_PRINTABLE);
    EXPECT_EQ(bodyOf(message), "abcdefghijklmnopqrstuvwxyz=E9\r\n");
    EXPECT_EQ(message.getBody(0), QString::fromLatin1("abcdefghijklmnopqrstuvwxyz\xe9\r\n"));
}

TEST(EMAIL_BasicMsgBody, NulKeepsEveryByteOfTheConversion)
{
    const QString text = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    EMAIL_BasicMsg message;
    message.setBody(text, true);
    EXPECT_EQ(message.getCharset(), CHARSET_UTF_8);
    EXPECT_EQ(message.getCTE(), CTE_BASE64);
    EXPECT_EQ(bodyOf(message), "YQBi\r\n");
    EXPECT_EQ(message.getBody(0), text);

    EMAIL_BasicMsg eightBit;
    eightBit.setCTE(CTE_8BIT);
    eightBit.setBody(text, true);
    EXPECT_EQ(bodyOf(eightBit), QByteArray("a\0b", 3));
}

TEST(EMAIL_BasicMsgBody, TextWithoutEncodingIsLatin1)
{
    EMAIL_BasicMsg message(QByteArray("Content-Transfer-Encoding: base64\r\n\r\nx"));
    message.setBody(eAcute, false);
    EXPECT_EQ(bodyOf(message), "caf\xe9");
    EXPECT_EQ(message.getHeader()->mFields.count(), 1);
    EXPECT_EQ(message.getCTE(), CTE_BASE64);
    message.setBody(QString(), false);
    EXPECT_EQ(bodyOf(message), "");
}

TEST(EMAIL_BasicMsgBody, Utf7IsNeverWritten)
{
    EMAIL_BasicMsg message(QByteArray("Content-Type: text/plain; charset=utf-7\r\n\r\nold"));
    message.setBody(eAcute, true);
    EXPECT_EQ(bodyOf(message), "old");
    message.setBody(greek, true);
    EXPECT_EQ(message.getCharset(), CHARSET_UTF_8);
    EXPECT_EQ(message.getBody(0), greek);
}

TEST(EMAIL_BasicMsgBody, BytesGetATypeAndAnEncoding)
{
    EMAIL_BasicMsg message(QByteArray("Content-Type: odd/thing\r\n\r\n"));
    message.setBody(QByteArray("a\0b\xff", 4));
    EXPECT_EQ(message.getTypeStr(), QStringLiteral("application"));
    EXPECT_EQ(message.getSubTypeStr(), QStringLiteral("octet-stream"));
    EXPECT_EQ(message.getCTE(), CTE_BASE64);
    EXPECT_EQ(bodyOf(message), "YQBi/w==\r\n");

    EMAIL_BasicMsg typeless;
    typeless.setBody(QByteArray("abcdefghijklmnopqrst"));
    EXPECT_EQ(typeless.getSubTypeStr(), QStringLiteral("octet-stream"));
    EXPECT_EQ(typeless.getCTE(), CTE_QUOTED_PRINTABLE);
    EXPECT_EQ(bodyOf(typeless), "abcdefghijklmnopqrst\r\n");

    EMAIL_BasicMsg image(
        QByteArray("Content-Type: image/png\r\nContent-Transfer-Encoding: 8bit\r\n\r\n"));
    image.setBody(QByteArray("\x89PNG"));
    EXPECT_EQ(bodyOf(image), "\x89PNG") << "a set encoding is kept";
    EXPECT_EQ(image.getType(), TYPE_IMAGE);
}

TEST(EMAIL_BasicMsgBody, EmptyBytesChangeNothing)
{
    EMAIL_BasicMsg message(QByteArray("A: 1\r\n\r\nold"));
    message.setBody(QByteArray());
    EXPECT_EQ(bodyOf(message), "old");
    EXPECT_EQ(message.getHeader()->mFields.count(), 1);
}

// A parsed field is written in its normalised form.
TEST(EMAIL_BasicMsgBody, EmptyBytesLeaveTheTypeUnread)
{
    EMAIL_BasicMsg message;
    message.setHeader("Content-Type: a\r\n");
    message.setBody(QByteArray());
    EXPECT_EQ(message.getHeader()->getField("Content-Type")->mParsed, 0);
    EXPECT_EQ(message.assemble(), "Content-Type: a\r\n\r\n");
}

TEST(EMAIL_BasicMsgBody, NulStaysInTextAndBytes)
{
    EMAIL_BasicMsg message;
    message.setBody(QString::fromLatin1("a\0b", 3), false);
    EXPECT_EQ(bodyOf(message), QByteArray("a\0b", 3));
    message.setCTE(CTE_8BIT);
    message.setBody(QByteArray("c\0d", 3));
    EXPECT_EQ(bodyOf(message), QByteArray("c\0d", 3));
    EXPECT_TRUE(QByteArray(message.assemble()).endsWith(QByteArray("c\0d", 3)));
}

TEST(EMAIL_BasicMsgBody, BytesDoNotReplaceParts)
{
    for (const char* type : {"multipart/mixed; boundary=b", "message/rfc822"}) {
        EMAIL_BasicMsg message(QByteArray("Content-Type: ") + type + "\r\n\r\n--b\r\n\r\nx");
        const QCString before = bodyOf(message);
        message.setBody(QByteArray("new"));
        EXPECT_EQ(bodyOf(message), before) << type;
        EXPECT_EQ(message.getHeader()->mFields.count(), 1) << type;
    }
}

namespace {

struct DecodeRow
{
    const char* name;
    const char* header;
    QByteArray body;
    int charset;
    QString text;
    QByteArray bytes;
};

void PrintTo(const DecodeRow& row, std::ostream* out)
{
    *out << row.name;
}

class DecodeBody : public testing::TestWithParam<DecodeRow>
{
protected:
    QByteArray message() const { return QByteArray(GetParam().header) + "\r\n" + GetParam().body; }
};

} // namespace

TEST_P(DecodeBody, InMemory)
{
    const EMAIL_BasicMsg basic(message());
    QString text(QStringLiteral("stale"));
    EXPECT_EQ(basic.getBody(text, GetParam().charset), 0);
    EXPECT_EQ(text, GetParam().text);
    EXPECT_EQ(basic.getBody(GetParam().charset), GetParam().text);
    RecordingFile file;
    EXPECT_EQ(basic.getBody(&file), 0);
    EXPECT_EQ(file.written(), GetParam().bytes);
}

TEST_P(DecodeBody, InAFile)
{
    const StoredFile stored(message());
    EMAIL_BasicMsg basic;
    ASSERT_EQ(basic.parse(stored.path()), 0);
    const OpenResources before = OpenResources::of(stored.path());
    QString text(QStringLiteral("stale"));
    EXPECT_EQ(basic.getBody(text, GetParam().charset), 0);
    EXPECT_EQ(text, GetParam().text);
    {
        RecordingFile file;
        EXPECT_EQ(basic.getBody(&file), 0);
        EXPECT_EQ(file.written(), GetParam().bytes);
    }
    EXPECT_EQ(OpenResources::of(stored.path()), before);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DecodeBody,
    testing::Values(
        DecodeRow{"plain", "A: 1\r\n", "Hello", 0, QStringLiteral("Hello"), "Hello"},
        DecodeRow{"no body", "A: 1\r\n", "", 0, QString(), ""},
        DecodeRow{"quoted-printable in latin-1",
                  "Content-Type: text/plain; charset=iso-8859-1\r\n"
                  "Content-Transfer-Encoding: quoted-printable\r\n",
                  "caf=E9", 0, eAcute, "caf\xe9"},
        DecodeRow{"base64 in utf-8",
                  "Content-Type: text/plain; charset=utf-8\r\n"
                  "Content-Transfer-Encoding: base64\r\n",
                  "zrHOsg==", 0, greek, "\xce\xb1\xce\xb2"},
        DecodeRow{"unknown charset takes the one given",
                  "Content-Type: text/plain; charset=odd\r\nContent-Transfer-Encoding: 8bit\r\n",
                  "\xce\xb1\xce\xb2", CHARSET_UTF_8, greek, "\xce\xb1\xce\xb2"},
        DecodeRow{"missing charset takes the one given", "Content-Type: text/plain\r\n",
                  "\xce\xb1\xce\xb2", CHARSET_UTF_8, greek, "\xce\xb1\xce\xb2"},
        DecodeRow{"known charset wins over the one given",
                  "Content-Type: text/plain; charset=iso-8859-1\r\n", "caf\xe9", CHARSET_UTF_8,
                  eAcute, "caf\xe9"},
        DecodeRow{"message without a type is latin-1 whatever is given", "A: 1\r\n", "caf\xe9",
                  CHARSET_UTF_8, eAcute, "caf\xe9"},
        DecodeRow{"unknown encoding is left alone",
                  "Content-Type: text/plain\r\nContent-Transfer-Encoding: x-odd\r\n", "a=41", 0,
                  QStringLiteral("a=41"), "a=41"}),
    rowName<DecodeRow>);

namespace {

const QByteArray base64Message = "Content-Type: image/png\r\n"
                                 "Content-Transfer-Encoding: base64\r\n\r\n" +
                                 QByteArray(100000, 'x').toBase64() + "\r\n";

// A message parsed from a file, and a file to write to.
class FileBackedBody : public testing::Test
{
protected:
    FileBackedBody() : mStored(base64Message) { mMessage.parse(mStored.path()); }

    OpenResources resources() const { return OpenResources::of(mStored.path()); }

    StoredFile mStored;
    EMAIL_BasicMsg mMessage;
    RecordingFile mTarget;
};

} // namespace

TEST_F(FileBackedBody, IsStreamedInBlocksThatAskTheCallback)
{
    int calls = 0;
    const OpenResources before = resources();
    EXPECT_EQ(mMessage.getBody(&mTarget, [&calls] { return ++calls, 0; }), 0);
    EXPECT_EQ(resources(), before);
    EXPECT_EQ(mTarget.written(), QByteArray(100000, 'x'));
    EXPECT_EQ(calls, 3) << "the rest is no full block";
}

TEST_F(FileBackedBody, CallbackCancels)
{
    const OpenResources before = resources();
    EXPECT_EQ(mMessage.getBody(&mTarget, [] { return -1; }), -1);
    EXPECT_EQ(mTarget.written(), "");
    int calls = 0;
    EXPECT_EQ(mMessage.getBody(&mTarget, [&calls] { return ++calls == 2 ? -1 : 0; }), -1);
    EXPECT_EQ(mTarget.written(), QByteArray(32769, 'x')) << "the first block, of whole groups";
    EXPECT_EQ(resources(), before);
}

TEST_F(FileBackedBody, FullDiskFails)
{
    QFile full(QStringLiteral("/dev/full"));
    ASSERT_TRUE(full.open(QIODevice::WriteOnly));
    const OpenResources before = resources();
    EXPECT_EQ(mMessage.getBody(&full), -1);
    EXPECT_EQ(resources(), before);
}

TEST_F(FileBackedBody, FileCutShortFailsInsteadOfShorteningTheBody)
{
    mStored.cutTo(1000);
    const OpenResources before = resources();
    QString text(QStringLiteral("kept"));
    EXPECT_EQ(mMessage.getBody(text, 0), -1);
    EXPECT_EQ(text, QStringLiteral("kept"));
    EXPECT_EQ(mMessage.getBody(&mTarget), -1);
    EXPECT_EQ(mTarget.written(), "");
    EXPECT_EQ(resources(), before);
}

TEST_F(FileBackedBody, FileCutShortWhileItIsStreamedFails)
{
    const OpenResources before = resources();
    EXPECT_EQ(mMessage.getBody(&mTarget, [this] { return mStored.cutTo(100), 0; }), -1);
    EXPECT_TRUE(QByteArray(100000, 'x').startsWith(mTarget.written()));
    EXPECT_EQ(resources(), before);
}

// 1. A body in memory gives what it has: nothing.
TEST_F(FileBackedBody, DecodingThatGivesNoBytesLeavesTheText)
{
    const StoredFile stored("QUJ");
    QString text(QStringLiteral("kept"));
    mMessage.setBodyInfo(stored.path(), 0, 3, true);
    EXPECT_EQ(mMessage.getBody(text, 0), 0);
    EXPECT_EQ(text, QStringLiteral("kept"));
    mMessage.mMessage->mBody->setMessage("QUJ");
    EXPECT_EQ(mMessage.getBody(text, 0), 0);
    EXPECT_EQ(text, QString());
}

TEST_F(FileBackedBody, MissingFileFails)
{
    QFile::remove(mStored.path());
    const OpenResources before = resources();
    QString text(QStringLiteral("kept"));
    EXPECT_EQ(mMessage.getBody(text, 0), -1);
    EXPECT_EQ(text, QStringLiteral("kept"));
    EXPECT_EQ(mMessage.getBody(&mTarget), -1);
    EXPECT_EQ(resources(), before);
}

TEST_F(FileBackedBody, RangeOutsideTheFileFails)
{
    const int size = int(base64Message.size());
    const struct
    {
        int offset;
        int length;
    } rows[] = {{0, size + 1}, {size, 1}, {-1, 1}, {0, -1}, {2147483647, 2147483647}};
    for (const auto& row : rows) {
        mMessage.setBodyInfo(mStored.path(), row.offset, row.length, true);
        QString text;
        EXPECT_EQ(mMessage.getBody(text, 0), -1) << row.offset << ' ' << row.length;
        EXPECT_EQ(mMessage.getBody(&mTarget), -1) << row.offset << ' ' << row.length;
    }
    EXPECT_EQ(mTarget.written(), "");
}

TEST_F(FileBackedBody, HasNoTextInMemory)
{
    EXPECT_TRUE(mMessage.getBody(0).isEmpty());
    EMAIL_BasicMsg message(QByteArray("A: 1\r\n\r\nold"));
    message.setBodyInfo(mStored.path(), 1, 2, false);
    EXPECT_FALSE(message.isBodyInMemory());
    EXPECT_TRUE(message.getBody(0).isEmpty()) << "what was in memory before counts no more";
    QString path;
    int offset = 0;
    int length = 0;
    bool encoded = true;
    message.getBodyInfo(path, offset, length, encoded);
    EXPECT_EQ(path, mStored.path());
    EXPECT_EQ(offset, 1);
    EXPECT_EQ(length, 2);
    EXPECT_FALSE(encoded);
    message.setBody(QStringLiteral("new"), true);
    EXPECT_TRUE(message.isBodyInMemory());
    EXPECT_EQ(message.getBody(0), QStringLiteral("new"));
}

TEST(EMAIL_BasicMsgBody, BodyInMemoryIsWrittenAtOnceWithoutAsking)
{
    const EMAIL_BasicMsg message(QByteArray("A: 1\r\n\r\n") + QByteArray(100000, 'x'));
    RecordingFile file;
    EXPECT_EQ(message.getBody(&file, [] { return -1; }), 0);
    EXPECT_EQ(file.written().size(), 100000);
}

TEST(EMAIL_BasicMsgBody, FullDiskFailsForABodyInMemory)
{
    QFile full(QStringLiteral("/dev/full"));
    ASSERT_TRUE(full.open(QIODevice::WriteOnly));
    const EMAIL_BasicMsg message(QByteArray("A: 1\r\n\r\nx"));
    EXPECT_EQ(message.getBody(&full), -1);
    QFile closed(QStringLiteral("/nowhere/at/all"));
    EXPECT_EQ(message.getBody(&closed), -1);
    EXPECT_EQ(message.getBody(static_cast<QFile*>(nullptr), nullptr), -1);
}

TEST(EMAIL_BasicMsgNewMessage, NullGivesAnEmptyText)
{
    EXPECT_EQ(EMAIL_BasicMsg::newMessage(nullptr, QStringLiteral("x"), 0), "");
}

TEST(EMAIL_BasicMsgNewMessage, CarriesTheNamedFieldsOnly)
{
    const char* raw = "Message-ID: <1@x>\r\nContent-Type: text/html; charset=utf-8\r\n"
                      "X-QRN-DSN: 1\r\nSubject: =?iso-8859-1?q?caf=E9?=\r\n"
                      "From: a@b\r\nTo: \xe9 <c@d>\r\nCc: e@f\r\nBcc: g@h\r\n"
                      "Reply-To: i@j\r\nSender: k@l\r\n"
                      "Date: Tue, 3 Mar 2020 14:05:00 +0000\r\n\r\nold body";
    const QCString text =
        EMAIL_BasicMsg::newMessage(raw, QStringLiteral("new body"), CHARSET_ISO_8859_1);
    const EMAIL_BasicMsg copy{QByteArray(text)};
    QCString names;
    for (const EMAIL_Field* field : copy.getHeader()->mFields)
        names += field->mName + ' ';
    EXPECT_EQ(names, "From To Date Subject Cc Bcc X-Mailer Mime-Version Content-Type ");
    EXPECT_EQ(copy.getFrom(0), QStringLiteral("a@b"));
    EXPECT_NE(text.find("To: =?utf-8?b?w6kg?=<c@d>\r\n"), -1) << "encoded again: " << text.data();
    EXPECT_EQ(copy.getCc(0), QStringLiteral("e@f"));
    EXPECT_EQ(copy.getBcc(0), QStringLiteral("g@h"));
    EXPECT_NE(text.find("Subject: =?utf-8?b?Y2Fmw6k=?=\r\n"), -1) << text.data();
    EXPECT_EQ(copy.getDate(), 1583244300UL);
    EXPECT_EQ(copy.getXMailer(), QStringLiteral("Kelda-Tarvo"));
    EXPECT_EQ(copy.getBody(0), QStringLiteral("new body"));
    EXPECT_EQ(copy.getTypeStr(), QStringLiteral("text"));
    EXPECT_EQ(copy.getSubTypeStr(), QStringLiteral("plain"));
}

TEST(EMAIL_BasicMsgNewMessage, WithoutADateGetsTheCurrentOne)
{
    const QCString text = EMAIL_BasicMsg::newMessage("Subject: x\r\n\r\ny", QString(), 0);
    const EMAIL_BasicMsg copy{QByteArray(text)};
    EXPECT_NE(copy.getDate(), 0UL);
    EXPECT_EQ(copy.getHeader()->mFields.count(), 4) << text.data();
    EXPECT_TRUE(copy.getBody(0).isEmpty());
    EXPECT_EQ(copy.getType(), 0) << "no body, no type";
}

} // namespace email_basic_msg_body_test
