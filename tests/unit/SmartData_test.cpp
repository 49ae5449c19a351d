// SPDX-License-Identifier: MIT
// The short header text that accompanies smart-send data.
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

namespace smart_data_test {

namespace {

const QByteArray contentType = "Content-Type: text/plain;\r\n\tcharset=utf-8\r\n";

struct Row
{
    const char* name;
    QByteArray header;
    QByteArray smartData;
    QByteArray headerAfter;
};

void PrintTo(const Row& row, std::ostream* out)
{
    printEscaped(row.header, out);
}

const Row rows[] = {
    {"EmptyHeader", "", contentType, contentType},
    {"ToReplacesFrom", "From: f@x\r\nTo: t@x\r\n", "To: t@x\r\n" + contentType,
     "From: f@x\r\nTo: t@x\r\n" + contentType},
    {"FromAlone", "From: f@x\r\n", "From: f@x\r\n" + contentType, "From: f@x\r\n" + contentType},
    {"EmptyToStillReplacesFrom", "From: f@x\r\nTo:\r\n", contentType,
     "From: f@x\r\n" + contentType},
    {"FixedOrder",
     "Mime-Version: 1.0\r\nDate: 5 Nov 2002\r\nX-Own: 1\r\nSubject: s\r\nBcc: b@x\r\n"
     "Cc: c@x\r\nTo: t@x\r\n",
     "To: t@x\r\nCc: c@x\r\nBcc: b@x\r\nSubject: s\r\nDate: 5 Nov 2002\r\nMime-Version: 1.0\r\n" +
         contentType,
     "To: t@x\r\nDate: 5 Nov 2002\r\nSubject: s\r\nMime-Version: 1.0\r\nX-Own: 1\r\n"
     "Bcc: b@x\r\nCc: c@x\r\n" +
         contentType},
    {"OnlyTheFirstOfAName", "Cc: 1@x\r\nCc: 2@x\r\n", "Cc: 1@x\r\n" + contentType,
     "Cc: 1@x\r\nCc: 2@x\r\n" + contentType},
    {"EmptyFieldsGiveNothing", "Cc:\r\nSubject:\r\n", contentType, contentType},
    {"ContentTypeIsRewrittenInPlace",
     "Content-Type: multipart/mixed; boundary=abc; name=x\r\nSubject: s\r\n",
     "Subject: s\r\n" + contentType, "Subject: s\r\n" + contentType},
};

class SmartData : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(SmartData, IsTakenFromTheHeader)
{
    EMAIL_Header header(GetParam().header, nullptr);
    header.parse();
    EXPECT_EQ(header.getSmartData(), GetParam().smartData);
    EXPECT_EQ(header.getSmartData(), GetParam().smartData) << "a second time";
    header.assemble();
    EXPECT_EQ(header.mString, GetParam().headerAfter);
}

INSTANTIATE_TEST_SUITE_P(Rows, SmartData, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(SmartDataContentType, KeepsTheParametersOfAParsedField)
{
    EMAIL_Header header(QCString("Content-Type: multipart/mixed; boundary=abc; name=x\r\n"),
                        nullptr);
    header.parse();
    ASSERT_NE(header.getContentType(), nullptr);
    EXPECT_EQ(header.getSmartData(),
              "Content-Type: text/plain;\r\n\tcharset=utf-8;\r\n\tname=x\r\n");
    EXPECT_EQ(header.getContentType()->mBoundary, "");
    EXPECT_EQ(header.getContentType()->mTypeEnum, TYPE_TEXT);
}

TEST(SmartDataContentType, IsCreatedAndStays)
{
    EMAIL_Header header;
    header.getSmartData();
    ASSERT_NE(header.getContentType(), nullptr);
    EXPECT_EQ(header.getContentType()->getCharset(), CHARSET_UTF_8);
    EXPECT_EQ(header.mFields.count(), 1);
}

TEST(SmartDataContentType, ReplacesAPlainFieldOfThatName)
{
    EMAIL_Header header;
    auto* plain = new EMAIL_Field;
    plain->mName = "Content-Type";
    plain->mBody = "image/gif";
    header.addField(plain);
    EXPECT_EQ(header.getSmartData(), contentType);
    EXPECT_EQ(header.mFields.count(), 1);
}

TEST(SmartDataContentType, ThatRefusesLeavesNothingOfTheRest)
{
    EMAIL_Header header(QCString("To: t@x\r\nSubject: s\r\n"), nullptr);
    header.parse();
    header.contentType()->setParameter("a", QByteArray(1 << 21, 'x'));
    EXPECT_EQ(header.getSmartData(), "");
    header.contentType()->setParameter("a", "1");
    EXPECT_EQ(header.getSmartData(), "To: t@x\r\nSubject: s\r\nContent-Type: text/plain;\r\n"
                                     "\ta=1;\r\n\tcharset=utf-8\r\n");
}

} // namespace smart_data_test
