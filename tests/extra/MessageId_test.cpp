// SPDX-License-Identifier: MIT
#include "extra/MessageId.h"

#include "utility/EMAIL_Header.h"

#include <QSet>
#include <gtest/gtest.h>

namespace message_id_test {

using namespace tarvomime;

namespace {

struct ThreadRow
{
    const char* name;
    QByteArray original;
    const char* inReplyTo;
    const char* references;
};

class ReplyThread : public testing::TestWithParam<ThreadRow>
{
};

} // namespace

TEST_P(ReplyThread, IsTied)
{
    EMAIL_Header header(GetParam().original, nullptr);
    header.parse();
    const ThreadFields fields = replyThread(header);
    EXPECT_EQ(QByteArray(fields.inReplyTo).toStdString(), GetParam().inReplyTo);
    EXPECT_EQ(QByteArray(fields.references).toStdString(), GetParam().references);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, ReplyThread,
    testing::Values(
        ThreadRow{"NoId", "Subject: x\r\nReferences: <a@x>\r\n", "", ""},
        ThreadRow{"First", "Message-ID: <a@x>\r\n", "<a@x>", "<a@x>"},
        ThreadRow{"WithReferences", "Message-ID: <c@x>\r\nReferences: <a@x>\r\n <b@x>\r\n", "<c@x>",
                  "<a@x>\r\n\t<b@x>\r\n\t<c@x>"},
        ThreadRow{"WithInReplyTo", "Message-ID: <b@x>\r\nIn-Reply-To: <a@x>\r\n", "<b@x>",
                  "<a@x>\r\n\t<b@x>"},
        ThreadRow{"WithPhrases",
                  "Message-ID: <b@x>\r\nIn-Reply-To: Your mail of \"<\" <a@x> (c)\r\n", "<b@x>",
                  "<a@x>\r\n\t<b@x>"},
        ThreadRow{"WithTwoInReplyTo", "Message-ID: <c@x>\r\nIn-Reply-To: <a@x> <b@x>\r\n", "<c@x>",
                  "<c@x>"},
        ThreadRow{"ReferencesWin",
                  "Message-ID: <c@x>\r\nIn-Reply-To: <b@x>\r\nReferences: <a@x>\r\n", "<c@x>",
                  "<a@x>\r\n\t<c@x>"},
        ThreadRow{"BrokenId", "Message-ID: a@x\r\nReferences: <a@x>\r\n", "", ""},
        ThreadRow{"ControlInId", "Message-ID: <a\x1B@x>\r\n", "", ""},
        ThreadRow{"EightBitInReference", "Message-ID: <c@x>\r\nReferences: <a\xE9@x> <b@x>\r\n",
                  "<c@x>", "<b@x>\r\n\t<c@x>"},
        ThreadRow{"WithoutBlanks", "Message-ID: <c@x>\r\nReferences: <a@x><b@x>\r\n", "<c@x>",
                  "<a@x>\r\n\t<b@x>\r\n\t<c@x>"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReplyThreadLimit, KeepsTheFirstAndTheLast)
{
    QByteArray references;
    for (int i = 0; i < 10000; ++i)
        references += " <" + QByteArray::number(i) + "@x>";
    EMAIL_Header header("Message-ID: <last@x>\r\nReferences:" + references + "\r\n", nullptr);
    header.parse();
    const QList<QCString> ids = readMessageIds(replyThread(header).references);
    ASSERT_EQ(ids.size(), 50);
    EXPECT_EQ(ids.first(), "<0@x>");
    EXPECT_EQ(ids.at(1), "<9952@x>");
    EXPECT_EQ(ids.last(), "<last@x>");
}

TEST(MessageId, IsNewAndInTheDomain)
{
    QSet<QByteArray> seen;
    for (int i = 0; i < 1000; ++i) {
        const QCString id = makeMessageId("j@a.example");
        EXPECT_EQ(readMessageIds(id), QList<QCString>({id})) << id.data();
        EXPECT_TRUE(QByteArray(id).endsWith("@a.example>")) << id.data();
        seen.insert(id);
    }
    EXPECT_EQ(seen.size(), 1000);
    EXPECT_TRUE(QByteArray(makeMessageId(QString::fromUtf8("j@bücher.example")))
                    .endsWith("@xn--bcher-kva.example>"));
    for (const char* address : {"", "j@", "j@[192.0.2.1]", "j@a b", "j@a>b"})
        EXPECT_EQ(readMessageIds(makeMessageId(address)).size(), 1) << address;
}

TEST(MessageIdFlood, IsLinear)
{
    for (const char* shape : {"<", ">", "<a", "<>", "<a@x>", "< "})
        EXPECT_LE(readMessageIds(QByteArray(shape).repeated(300000)).size(), 300000) << shape;
}

} // namespace message_id_test
