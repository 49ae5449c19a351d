// SPDX-License-Identifier: MIT
#include "tests/support/RowNames.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_MultiPart.h"

#include <functional>

namespace email_mime_header_test {

namespace {

struct WriteRow
{
    const char* name;
    std::function<void(EMAIL_MultiPart&)> fill;
    const char* header;
};

void PrintTo(const WriteRow& row, std::ostream* out)
{
    *out << row.name;
}

class HeadFromPart : public testing::TestWithParam<WriteRow>
{
};

const char* const cte7bit = "Content-Transfer-Encoding: 7bit\r\n";

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST_P(HeadFromPart, IsWritten)
{
    EMAIL_MultiPart part(nullptr);
    part.setAttSize(-1);
    GetParam().fill(part);
    EMAIL_Header header;
    EMAIL_MIME::setHeadFromMultiPart(part, &header);
    header.assemble();
    EXPECT_EQ(header.getMessage(), GetParam().header);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, HeadFromPart,
    testing::Values(
        WriteRow{"nothing but the transfer encoding", [](EMAIL_MultiPart&) {}, cte7bit},
        WriteRow{"type and charset",
                 [](EMAIL_MultiPart& p) {
                     p.setTypeStr(text("TEXT"));
                     p.setSubTypeStr(text("x-odd"));
                     p.setCharset(CHARSET_UTF_8);
                     p.setCTE(CTE_BASE64);
                 },
                 "Content-Type: TEXT/x-odd;\r\n\tcharset=utf-8\r\n"
                 "Content-Transfer-Encoding: base64\r\n"},
        WriteRow{"charset that is not set",
                 [](EMAIL_MultiPart& p) {
                     p.setType(TYPE_IMAGE);
                     p.setSubTypeStr(text("png"));
                 },
                 "Content-Type: image/png;\r\n\tcharset=us-ascii\r\n"
                 "Content-Transfer-Encoding: 7bit\r\n"},
        WriteRow{"type without subtype", [](EMAIL_MultiPart& p) { p.setType(TYPE_TEXT); }, cte7bit},
        WriteRow{"subtype without type", [](EMAIL_MultiPart& p) { p.setSubType(1); }, cte7bit},
        WriteRow{"method creates the type",
                 [](EMAIL_MultiPart& p) {
                     p.setType(TYPE_TEXT);
                     p.setMethod(text("REQUEST"));
                 },
                 "Content-Type: text/plain;\r\n\tmethod=REQUEST\r\n"
                 "Content-Transfer-Encoding: 7bit\r\n"},
        WriteRow{"name creates the type", [](EMAIL_MultiPart& p) { p.setName(text("a.txt")); },
                 "Content-Type: text/plain;\r\n\tname=\"a.txt\"\r\n"
                 "Content-Transfer-Encoding: 7bit\r\n"},
        WriteRow{"description", [](EMAIL_MultiPart& p) { p.setDescription(text("caf\xc3\xa9")); },
                 "Content-Transfer-Encoding: 7bit\r\nContent-Description: caf\xe9\r\n"},
        WriteRow{"file name is quoted",
                 [](EMAIL_MultiPart& p) {
                     p.setDispFileName(text("report.pdf"));
                     p.setDispType(1);
                 },
                 "Content-Transfer-Encoding: 7bit\r\n"
                 "Content-Disposition: attachment; filename = \"report.pdf\"\r\n"},
        WriteRow{"file name that begins with a quote",
                 [](EMAIL_MultiPart& p) { p.setDispFileName(text("\"report.pdf")); },
                 "Content-Transfer-Encoding: 7bit\r\n"
                 "Content-Disposition: inline; filename = \"report.pdf\r\n"},
        WriteRow{"file name that ends with a quote",
                 [](EMAIL_MultiPart& p) { p.setDispFileName(text("report.pdf\"")); },
                 "Content-Transfer-Encoding: 7bit\r\n"
                 "Content-Disposition: inline; filename = report.pdf\"\r\n"},
        WriteRow{"file name with a quote inside",
                 [](EMAIL_MultiPart& p) { p.setDispFileName(text("a\"b")); },
                 "Content-Transfer-Encoding: 7bit\r\n"
                 "Content-Disposition: inline; filename = \"a\"b\"\r\n"},
        WriteRow{"file name in encoded words",
                 [](EMAIL_MultiPart& p) {
                     p.setCharset(CHARSET_ISO_8859_1);
                     p.setDispFileName(text("\xc3\xa9.txt"));
                 },
                 "Content-Transfer-Encoding: 7bit\r\n"
                 "Content-Disposition: inline; filename = \"=?iso-8859-1?b?6S50eHQ=?=\"\r\n"},
        WriteRow{"disposition type without a file name",
                 [](EMAIL_MultiPart& p) { p.setDispType(1); }, cte7bit},
        WriteRow{"identifiers",
                 [](EMAIL_MultiPart& p) {
                     p.setID(text("<1@x>"));
                     p.setLocation(text("http://x/"));
                 },
                 "Content-Transfer-Encoding: 7bit\r\nContent-Id: <1@x>\r\n"
                 "Content-Location: http://x/\r\n"},
        WriteRow{"download state",
                 [](EMAIL_MultiPart& p) {
                     p.setNoAttDownloaded();
                     p.setASAttName(text("n\xc3\xa9"));
                     p.setAttSize(12);
                     p.setPartID(text("1.2"));
                 },
                 "Content-Transfer-Encoding: 7bit\r\nX-QRN-AS-Attn-Undownload: 1\r\n"
                 "X-QRN-AS-Attn-Name: n\xe9\r\nX-QRN-AS-Attn-Size: 12\r\n"
                 "X-MESSAGE-PARTID: 1.2\r\n"},
        WriteRow{"a new part's size 0", [](EMAIL_MultiPart& p) { p.setAttSize(0); },
                 "Content-Transfer-Encoding: 7bit\r\nX-QRN-AS-Attn-Size: 0\r\n"}),
    rowName<WriteRow>);

TEST(HeadFromPartAlone, ContainerGetsAFreshBoundary)
{
    for (const int type : {int(TYPE_MULTIPART), int(TYPE_APPLICATION)}) {
        EMAIL_MultiPart part(nullptr);
        part.setType(type);
        part.setSubType(type == TYPE_MULTIPART ? 21 : 72);
        part.setBoundary(QStringLiteral("own"));
        EMAIL_Header header;
        EMAIL_MIME::setHeadFromMultiPart(part, &header);
        header.assemble();
        EXPECT_NE(header.getMessage().find(";Boundary=\"------------"), -1)
            << header.getMessage().data();
        EXPECT_EQ(header.getMessage().find("own"), -1) << header.getMessage().data();
    }
}

TEST(HeadFromPartAlone, NullHeaderIsIgnored)
{
    EMAIL_MultiPart part(nullptr);
    EMAIL_MIME::setHeadFromMultiPart(part, nullptr);
    EMAIL_MIME::setHeadToMultiPart(nullptr, part);
    EMAIL_MIME::entityToMulitPart(nullptr, part);
    EXPECT_TRUE(part.getTypeStr().isNull());
}

namespace {

// Members before and after reading; a row names the ones that are its own.
struct ReadRow
{
    const char* name;
    const char* header;
    std::function<void(EMAIL_MultiPart&)> expected;
};

void PrintTo(const ReadRow& row, std::ostream* out)
{
    *out << row.name;
}

class HeadToPart : public testing::TestWithParam<ReadRow>
{
protected:
    // What every field can be absent and still leave behind.
    static void fillBefore(EMAIL_MultiPart& part)
    {
        part.setName(text("old name"));
        part.setDispFileName(text("old file"));
        part.setDispType(1);
        part.setMethod(text("OLD"));
        part.setCharset(CHARSET_KOI8_U);
        part.setBoundary(text("old"));
        part.setDescription(text("old"));
        part.setLocation(text("old"));
        part.setID(text("old"));
        part.setASAttName(text("old"));
        part.setPartID(text("old"));
        part.setNoAttDownloaded();
    }

    // What an empty header makes of it.
    static void fillAfter(EMAIL_MultiPart& part)
    {
        fillBefore(part);
        part.setType(TYPE_TEXT);
        part.setSubType(1);
        part.setCTE(CTE_7BIT);
        part.setBoundary(text(""));
        part.setDescription(text(""));
        part.setLocation(text(""));
        part.setID(text(""));
        part.setAttSize(-1);
    }
};

} // namespace

TEST_P(HeadToPart, IsRead)
{
    EMAIL_MultiPart part(nullptr);
    fillBefore(part);
    EMAIL_MultiPart expected(nullptr);
    fillAfter(expected);
    GetParam().expected(expected);
    EMAIL_Header header(GetParam().header, nullptr);
    header.parse();
    EMAIL_MIME::setHeadToMultiPart(&header, part);
    EXPECT_EQ(part.mTypeStr, expected.mTypeStr);
    EXPECT_EQ(part.mTypeEnum, expected.mTypeEnum);
    EXPECT_EQ(part.mSubTypeStr, expected.mSubTypeStr);
    EXPECT_EQ(part.mSubTypeEnum, expected.mSubTypeEnum);
    EXPECT_EQ(part.mCTE, expected.mCTE);
    EXPECT_EQ(part.mCharset, expected.mCharset);
    EXPECT_EQ(part.mName, expected.mName);
    EXPECT_EQ(part.mDispFileName, expected.mDispFileName);
    EXPECT_EQ(part.mDispType, expected.mDispType);
    EXPECT_EQ(part.mDescription, expected.mDescription);
    EXPECT_EQ(part.mLocation, expected.mLocation);
    EXPECT_EQ(part.mID, expected.mID);
    EXPECT_EQ(part.mAttDownloaded, expected.mAttDownloaded);
    EXPECT_EQ(part.mMethod, expected.mMethod);
    EXPECT_EQ(part.mASAttName, expected.mASAttName);
    EXPECT_EQ(part.mAttSize, expected.mAttSize);
    EXPECT_EQ(part.mPartID, expected.mPartID);
    EXPECT_EQ(part.mBoundary, expected.mBoundary);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, HeadToPart,
    testing::Values(ReadRow{"nothing", "", [](EMAIL_MultiPart&) {}},
                    ReadRow{"type text wins", "Content-Type: IMAGE/Odd\r\n",
                            [](EMAIL_MultiPart& p) {
                                p.setTypeStr(text("IMAGE"));
                                p.setSubTypeStr(text("Odd"));
                            }},
                    ReadRow{"parameters",
                            "Content-Type: multipart/mixed; boundary=\"b c\"; charset=utf-8;"
                            " method=\"PUBLISH\"; name=\"=?utf-8?q?=C3=A9?=.ics\"\r\n",
                            [](EMAIL_MultiPart& p) {
                                p.setType(TYPE_MULTIPART);
                                p.setSubTypeStr(text("mixed"));
                                p.setBoundary(text("b c"));
                                p.setCharset(CHARSET_UTF_8);
                                p.setMethod(text("PUBLISH"));
                                p.setName(text("\xc3\xa9.ics"));
                            }},
                    ReadRow{"unknown charset counts", "Content-Type: text/plain; charset=odd\r\n",
                            [](EMAIL_MultiPart& p) { p.setCharset(CHARSET_UNKNOWN); }},
                    ReadRow{"transfer encoding", "Content-Transfer-Encoding: Base64\r\n",
                            [](EMAIL_MultiPart& p) { p.setCTE(CTE_BASE64); }},
                    ReadRow{"unknown transfer encoding", "Content-Transfer-Encoding: x-odd\r\n",
                            [](EMAIL_MultiPart&) {}},
                    ReadRow{
                        "disposition",
                        "Content-Disposition: attachment; filename=\"=?utf-8?q?=C3=A9?=.txt\"\r\n",
                        [](EMAIL_MultiPart& p) { p.setDispFileName(text("\xc3\xa9.txt")); }},
                    ReadRow{"disposition without a file name", "Content-Disposition: inline\r\n",
                            [](EMAIL_MultiPart& p) {
                                p.setDispFileName(text(""));
                                p.setDispType(0);
                            }},
                    ReadRow{"description is not decoded", "Content-Description: =?utf-8?q?a?=\r\n",
                            [](EMAIL_MultiPart& p) { p.setDescription(text("=?utf-8?q?a?=")); }},
                    ReadRow{"identifiers", "Content-Id: <1@x>\r\nContent-Location: http://x/\r\n",
                            [](EMAIL_MultiPart& p) {
                                p.setID(text("<1@x>"));
                                p.setLocation(text("http://x/"));
                            }},
                    ReadRow{"download state",
                            "X-QRN-AS-Attn-Undownload: 0\r\nX-QRN-AS-Attn-Name: n\r\n"
                            "X-QRN-AS-Attn-Size: 12\r\nX-MESSAGE-PARTID: 1.2\r\n",
                            [](EMAIL_MultiPart& p) {
                                p.setASAttName(text("n"));
                                p.setAttSize(12);
                                p.setPartID(text("1.2"));
                            }}),
    rowName<ReadRow>);

TEST(HeadToPartAlone, NewPartWithoutTheMarkIsDownloaded)
{
    EMAIL_MultiPart part(nullptr);
    EMAIL_Header header;
    EMAIL_MIME::setHeadToMultiPart(&header, part);
    EXPECT_TRUE(part.isAttDownloaded());
    header.setAttUndownloaded();
    EMAIL_MIME::setHeadToMultiPart(&header, part);
    EXPECT_FALSE(part.isAttDownloaded());
}

TEST(HeadToPartAlone, MissingTypeIsCreatedAndStays)
{
    EMAIL_MultiPart part(nullptr);
    EMAIL_Header header;
    EMAIL_MIME::setHeadToMultiPart(&header, part);
    header.assemble();
    EXPECT_EQ(header.getMessage(), "Content-Type: text/plain\r\n");
}

TEST(HeadToPartAlone, TypeOfAnotherClassIsRead)
{
    EMAIL_MultiPart part(nullptr);
    EMAIL_Header header;
    auto* plain = new EMAIL_Field;
    plain->mName = "Content-Type";
    plain->mBody = "image/png; name=a.png";
    header.addField(plain);
    EMAIL_MIME::setHeadToMultiPart(&header, part);
    EXPECT_EQ(part.getTypeStr() + '/' + part.getSubTypeStr(), "image/png");
    EXPECT_EQ(part.getName(), "a.png");
    header.assemble();
    EXPECT_EQ(header.getMessage(), "Content-Type: image/png;\r\n\tname=a.png\r\n");
}

} // namespace email_mime_header_test
