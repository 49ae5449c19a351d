// SPDX-License-Identifier: MIT
// Random small messages: what a message list and a viewer ask is answered the same twice and in any
// order, and what is assembled afterwards is the same.
#include "tests/support/Printers.h"
#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <numeric>
#include <random>

namespace query_order_test {

namespace {

using Query = QByteArray (*)(const EMAIL_MIME&);

QByteArray textOf(int result, const QString& text)
{
    return QByteArray::number(result) + ' ' + text.toUtf8();
}

const std::array<Query, 9> queries{
    [](const EMAIL_MIME& m) { return QByteArray(m.hasAttachment() ? "1" : "0"); },
    [](const EMAIL_MIME& m) { return QByteArray::number(m.getAttachNum()); },
    [](const EMAIL_MIME& m) { return QByteArray(m.isCompleteMessage() ? "1" : "0"); },
    [](const EMAIL_MIME& m) {
        QString text(QStringLiteral("(none)"));
        const int result = m.getBody(text, 0);
        return textOf(result, text);
    },
    [](const EMAIL_MIME& m) {
        QString id(QStringLiteral("(none)"));
        const int result = m.getBodyPartId(id);
        return textOf(result, id);
    },
    [](const EMAIL_MIME& m) {
        QString id(QStringLiteral("(none)"));
        const int result = m.getCalendarPartId(id);
        return textOf(result, id);
    },
    [](const EMAIL_MIME& m) {
        RecordingFile file;
        const int result = m.getICalendar(&file);
        return QByteArray::number(result) + file.written();
    },
    [](const EMAIL_MIME& m) {
        RecordingFile file;
        const int result = m.getBody(&file);
        return QByteArray::number(result) + file.written();
    },
    [](const EMAIL_MIME& m) { return m.EMAIL_BasicMsg::getBody(0).toUtf8(); }};

// Messages of up to three levels, with fields as the library writes them.
class RandomMessages
{
public:
    explicit RandomMessages(unsigned int seed) : mEngine(seed) {}

    QByteArray next() { return entity(0); }

    template <class Order>
    void shuffle(Order& order)
    {
        std::shuffle(order.begin(), order.end(), mEngine);
    }

private:
    bool isLucky() { return mEngine() % 2 == 0; }

    QByteArray oneOf(std::initializer_list<const char*> texts)
    {
        return texts.begin()[mEngine() % texts.size()];
    }

    QByteArray entity(int level)
    {
        QByteArray text = "X-MESSAGE-PARTID: " + QByteArray::number(++mParts) + "\r\n";
        if (mEngine() % 4 == 0)
            text += "X-QRN-AS-Attn-Undownload: 1\r\n";
        if (isLucky())
            text += "Content-Disposition: inline;filename=f\r\n";
        if (level == 3 || (level > 0 && isLucky()))
            return text + leaf();
        return text + container(level);
    }

    QByteArray leaf()
    {
        const QByteArray type = oneOf({"text/plain", "text/html", "text/calendar", "image/png",
                                       "message/rfc822", "application/pdf", ""});
        return (type.isEmpty() ? type : "Content-Type: " + type + "\r\n") + "\r\nbody " +
               QByteArray::number(mParts) + " end";
    }

    QByteArray container(int level)
    {
        const QByteArray type =
            oneOf({"multipart/mixed", "multipart/alternative", "multipart/related",
                   "multipart/report", "application/vnd.wap.multipart.mixed"});
        const QByteArray boundary = "b" + QByteArray::number(level);
        QByteArray text = "Content-Type: " + type + ";\r\n\tboundary=" + boundary + "\r\n\r\n";
        for (unsigned long count = mEngine() % 4; count > 0; --count)
            text += "--" + boundary + "\r\n" + entity(level + 1) + "\r\n";
        return text + "--" + boundary + "--\r\n";
    }

    std::mt19937 mEngine;
    int mParts = 0;
};

} // namespace

TEST(QueryOrder, DoesNotMatter)
{
    constexpr unsigned int seed = 9;
    RandomMessages messages(seed);
    std::array<std::size_t, queries.size()> order{};
    std::iota(order.begin(), order.end(), 0);
    for (int round = 0; round < 100; ++round) {
        const QByteArray text = messages.next();
        const QByteArray untouched = EMAIL_MIME(text).assemble();
        std::array<QByteArray, queries.size()> alone;
        for (std::size_t i = 0; i < queries.size(); ++i)
            alone[i] = queries[i](EMAIL_MIME(text));
        EMAIL_MIME asked(text);
        for (int time = 0; time < 2; ++time) {
            messages.shuffle(order);
            for (const std::size_t query : order)
                ASSERT_EQ(queries[query](asked), alone[query])
                    << "query " << query << ", seed " << seed << ", round " << round << "\n"
                    << text.toStdString();
        }
        ASSERT_EQ(QByteArray(asked.assemble()), untouched)
            << "seed " << seed << ", round " << round << "\n"
            << text.toStdString();
    }
}

// Only reading a part out adds the field.
TEST(QueryOrder, APartThatIsReadOutGetsItsMissingType)
{
    const QByteArray start("Content-Type: multipart/mixed;\r\n\tboundary=b\r\n\r\n--b\r\nA: 1\r\n");
    const QByteArray end("\r\nx\r\n--b--\r\n");
    EMAIL_MIME message(start + end);
    for (const Query query : queries)
        query(message);
    const EMAIL_Header* header = message.mMessage->mBody->bodyPart(0)->mHeader;
    EXPECT_EQ(header->getContentType(), nullptr);
    EMAIL_MultiPart part;
    ASSERT_TRUE(message.getMultiPart(0, part));
    EXPECT_NE(header->getContentType(), nullptr);
}

namespace {

struct DispositionRow
{
    const char* name;
    const char* type;
    Query query;
};

void PrintTo(const DispositionRow& row, std::ostream* out)
{
    *out << row.name;
}

class UnparsedDisposition : public testing::TestWithParam<DispositionRow>
{
};

} // namespace

TEST_P(UnparsedDisposition, StaysAsItWasWritten)
{
    const EMAIL_MIME message(QByteArray("Content-Type: multipart/alternative; boundary=b\r\n\r\n"
                                        "--b\r\nContent-Disposition: inline;filename=f\r\n"
                                        "Content-Type: ") +
                             GetParam().type + "\r\n\r\ntext\r\n--b--\r\n");
    EXPECT_TRUE(GetParam().query(message).contains("text"));
    const EMAIL_BodyPart* part = message.mMessage->mBody->bodyPart(0);
    const EMAIL_Field* field = part->mHeader->getField("Content-Disposition");
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->mParsed, 0);
}

INSTANTIATE_TEST_SUITE_P(Rows, UnparsedDisposition,
                         testing::Values(DispositionRow{"text", "text/plain", queries[3]},
                                         DispositionRow{"calendar", "text/calendar", queries[6]}));

} // namespace query_order_test
