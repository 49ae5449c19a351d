// SPDX-License-Identifier: MIT
// The private bookkeeping fields of the mail client.
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <climits>
#include <functional>
#include <optional>

namespace email_header_extensions_test {

namespace {

QByteArray assembled(EMAIL_Header& header)
{
    header.assemble();
    return header.mString;
}

void fill(EMAIL_Header& header, const QCString& text)
{
    header.setMessage(text);
    header.parse();
}

struct WriterRow
{
    const char* name;
    std::function<void(EMAIL_Header&)> write;
    QByteArray field;
    QByteArray line;
};

void PrintTo(const WriterRow& row, std::ostream* out)
{
    printEscaped(row.line, out);
}

const WriterRow writerRows[] = {
    {"PartId", [](EMAIL_Header& h) { h.setPartID(" 1.2 x"); }, "X-MESSAGE-PARTID",
     "X-MESSAGE-PARTID:  1.2 x\r\n"},
    {"AttachmentSize", [](EMAIL_Header& h) { h.setAttSize(INT_MAX); }, "X-QRN-AS-Attn-Size",
     "X-QRN-AS-Attn-Size: 2147483647\r\n"},
    {"NegativeAttachmentSize", [](EMAIL_Header& h) { h.setAttSize(INT_MIN); }, "X-QRN-AS-Attn-Size",
     "X-QRN-AS-Attn-Size: -2147483648\r\n"},
    {"AttachmentName", [](EMAIL_Header& h) { h.setASAttName("a b\xe9.pdf"); }, "X-QRN-AS-Attn-Name",
     "X-QRN-AS-Attn-Name: a b\xe9.pdf\r\n"},
    {"AttachmentNotDownloaded", [](EMAIL_Header& h) { h.setAttUndownloaded(); },
     "X-QRN-AS-Attn-Undownload", "X-QRN-AS-Attn-Undownload: 1\r\n"},
    {"BodySize", [](EMAIL_Header& h) { h.setBodySize(0); }, "X-QRN-Message-Body-Size",
     "X-QRN-Message-Body-Size: 0\r\n"},
    {"BodyTruncated", [](EMAIL_Header& h) { h.setBodyTruncated(-1); },
     "X-QRN-Message-Body-Truncated", "X-QRN-Message-Body-Truncated: -1\r\n"},
};

// One integer reader over every kind of value. `okWhenMissing` is unset where the flag is not
// touched.
struct ReaderRow
{
    const char* name;
    const char* field;
    std::function<long long(const EMAIL_Header&, bool*)> read;
    bool isSigned;
    long long whenMissing;
    std::optional<bool> okWhenMissing;
};

void PrintTo(const ReaderRow& row, std::ostream* out)
{
    *out << row.field;
}

const ReaderRow readerRows[] = {
    {"BodySize", "X-QRN-Message-Body-Size",
     [](const EMAIL_Header& h, bool* ok) { return h.getBodySize(ok); }, true, 0, false},
    {"BodyTruncated", "X-QRN-Message-Body-Truncated",
     [](const EMAIL_Header& h, bool* ok) { return h.getBodyTruncated(ok); }, true, -1, true},
    {"SmartSendFolder", "X-QRN-Smart-Send-RefFolderID",
     [](const EMAIL_Header& h, bool* ok) { return h.getSmartSendRefFolderID(ok); }, false, 0,
     false},
    {"SmartSendMessage", "X-QRN-Smart-Send-RefMessageID",
     [](const EMAIL_Header& h, bool* ok) { return h.getSmartSendRefMessageID(ok); }, false, 0,
     false},
    {"SmartSendLength", "X-QRN-Smart-Send-Data-Length",
     [](const EMAIL_Header& h, bool* ok) { return h.getSmartSendDataLength(ok); }, false, 0, false},
    {"SmartSendType", "X-QRN-Smart-Send-Type",
     [](const EMAIL_Header& h, bool* ok) { return h.getSmartSendType(ok); }, true, 0, std::nullopt},
};

struct ValueRow
{
    const char* text;
    std::optional<long long> asSigned;
    std::optional<long long> asUnsigned;
};

const ValueRow valueRows[] = {
    {"0", 0, 0},
    {"42", 42, 42},
    {"+42", 42, 42},
    {" \t42 \r\n", 42, 42},
    {"007", 7, 7},
    {"-1", -1, std::nullopt},
    {"2147483647", 2147483647, 2147483647},
    {"2147483648", std::nullopt, 2147483648},
    {"-2147483648", -2147483648, std::nullopt},
    {"-2147483649", std::nullopt, std::nullopt},
    {"4294967295", std::nullopt, 4294967295},
    {"4294967296", std::nullopt, std::nullopt},
    {"", std::nullopt, std::nullopt},
    {" ", std::nullopt, std::nullopt},
    {"+", std::nullopt, std::nullopt},
    {"- 1", std::nullopt, std::nullopt},
    {"1 2", std::nullopt, std::nullopt},
    {"0x10", std::nullopt, std::nullopt},
    {"1.0", std::nullopt, std::nullopt},
    {"many", std::nullopt, std::nullopt},
};

class EMAIL_HeaderExtensionsWriter : public testing::TestWithParam<WriterRow>
{
};

class EMAIL_HeaderExtensionsReader : public testing::TestWithParam<ReaderRow>
{
};

} // namespace

TEST_P(EMAIL_HeaderExtensionsWriter, AppendsOrOverwritesItsField)
{
    const WriterRow& row = GetParam();
    EMAIL_Header fresh;
    fill(fresh, "A: 1\r\nB: 2\r\n");
    row.write(fresh);
    EXPECT_EQ(assembled(fresh), "A: 1\r\nB: 2\r\n" + row.line);

    EMAIL_Header existing;
    fill(existing, "A: 1\r\n" + row.field.toUpper() + ": old\r\nB: 2\r\n");
    row.write(existing);
    const QByteArray line = row.field.toUpper() + row.line.mid(row.field.size());
    EXPECT_EQ(assembled(existing), "A: 1\r\n" + line + "B: 2\r\n") << "name kept as it came";
}

INSTANTIATE_TEST_SUITE_P(Rows, EMAIL_HeaderExtensionsWriter, testing::ValuesIn(writerRows),
                         [](const auto& row) { return row.param.name; });

TEST_P(EMAIL_HeaderExtensionsReader, ReadsEveryKindOfValue)
{
    const ReaderRow& row = GetParam();
    for (const ValueRow& value : valueRows) {
        EMAIL_Header header;
        EMAIL_Field* field = header.field(QByteArray(row.field).toLower());
        field->mBody = value.text;
        const auto expected = row.isSigned ? value.asSigned : value.asUnsigned;
        for (bool ok : {false, true}) {
            EXPECT_EQ(row.read(header, &ok), expected.value_or(0)) << value.text;
            EXPECT_EQ(ok, expected.has_value()) << value.text;
        }
        EXPECT_EQ(row.read(header, nullptr), expected.value_or(0)) << value.text;
    }
}

TEST_P(EMAIL_HeaderExtensionsReader, KnowsAMissingField)
{
    const ReaderRow& row = GetParam();
    const EMAIL_Header header;
    for (const bool before : {false, true}) {
        bool ok = before;
        EXPECT_EQ(row.read(header, &ok), row.whenMissing);
        EXPECT_EQ(ok, row.okWhenMissing.value_or(before));
    }
    EXPECT_EQ(row.read(header, nullptr), row.whenMissing);
}

INSTANTIATE_TEST_SUITE_P(Rows, EMAIL_HeaderExtensionsReader, testing::ValuesIn(readerRows),
                         [](const auto& row) { return row.param.name; });

TEST(EMAIL_HeaderExtensions, PartIdIsNullWhenMissing)
{
    EMAIL_Header header;
    EXPECT_TRUE(header.getPartID().isNull());
    fill(header, "x-message-partid: 1.2\r\n");
    EXPECT_EQ(header.getPartID(), "1.2");
}

TEST(EMAIL_HeaderExtensions, AttachmentSizeIsMinusOneWhenMissing)
{
    EMAIL_Header header;
    EXPECT_EQ(header.getAttSize(), -1);
    for (const ValueRow& value : valueRows) {
        header.field("X-QRN-AS-Attn-Size")->mBody = value.text;
        EXPECT_EQ(header.getAttSize(), value.asSigned.value_or(0)) << value.text;
    }
}

TEST(EMAIL_HeaderExtensions, AttachmentNameIsEmptyWhenMissing)
{
    EMAIL_Header header;
    EXPECT_FALSE(header.getASAttName().isNull());
    EXPECT_EQ(header.getASAttName(), "");
    header.setASAttName("a.pdf");
    EXPECT_EQ(header.getASAttName(), "a.pdf");
}

TEST(EMAIL_HeaderExtensions, AttachmentIsDownloadedWhenNothingSaysOtherwise)
{
    EMAIL_Header header;
    EXPECT_TRUE(header.isAttDownloaded());
    fill(header, "X-QRN-AS-Attn-Undownload: 0\r\n");
    EXPECT_FALSE(header.isAttDownloaded()) << "the value is not looked at";
    header.removeField("X-QRN-AS-Attn-Undownload");
    EXPECT_TRUE(header.isAttDownloaded());
}

TEST(EMAIL_HeaderExtensions, OperationIsTheSmartSendTypeOrMinusOne)
{
    EMAIL_Header header;
    EXPECT_EQ(header.getOperation(), -1);
    for (const ValueRow& value : valueRows) {
        header.field("X-QRN-Smart-Send-Type")->mBody = value.text;
        EXPECT_EQ(header.getOperation(), value.asSigned.value_or(-1)) << value.text;
    }
}

TEST(EMAIL_HeaderExtensions, SmartSendInfoIsReplacedAsAWhole)
{
    const QByteArray smartSend = "X-QRN-Smart-Send-RefFolderID: 4294967295\r\n"
                                 "X-QRN-Smart-Send-RefMessageID: 1\r\n"
                                 "X-QRN-Smart-Send-Data-Length: 2\r\n"
                                 "X-QRN-Smart-Send-Type: -1\r\n";
    EMAIL_Header header;
    header.setSmartSendInfo(4294967295U, 1, 2, -1);
    EXPECT_EQ(assembled(header), smartSend);
    header.field("Subject")->mBody = "s";
    header.field("X-Tail")->mBody = "t";
    header.setSmartSendInfo(4294967295U, 1, 2, -1);
    EXPECT_EQ(assembled(header), "Subject: s\r\nX-Tail: t\r\n" + smartSend) << "now at the end";
    EXPECT_EQ(header.mFields.count(), 6);
    EXPECT_EQ(header.getSmartSendRefFolderID(), 4294967295U);
    EXPECT_EQ(header.getSmartSendRefMessageID(), 1U);
    EXPECT_EQ(header.getSmartSendDataLength(), 2U);
    EXPECT_EQ(header.getSmartSendType(), -1);
    EXPECT_EQ(header.getOperation(), -1);
}

TEST(EMAIL_HeaderExtensions, RemovingTakesTheFirstOfEachName)
{
    EMAIL_Header header;
    fill(header, "X-QRN-Smart-Send-Type: 1\r\nX-QRN-Message-Body-Size: 1\r\n"
                 "X-QRN-Smart-Send-RefFolderID: 1\r\nX-QRN-Smart-Send-RefMessageID: 1\r\n"
                 "X-QRN-Message-Body-Truncated: 1\r\nX-QRN-Smart-Send-Data-Length: 1\r\n"
                 "x-qrn-smart-send-type: 2\r\nx-qrn-message-body-size: 2\r\nKeep: me\r\n");
    header.removeSmartDataInfo();
    EXPECT_EQ(assembled(header), "X-QRN-Message-Body-Size: 1\r\nX-QRN-Message-Body-Truncated: 1\r\n"
                                 "x-qrn-smart-send-type: 2\r\nx-qrn-message-body-size: 2\r\n"
                                 "Keep: me\r\n");
    header.removeBodyTruncatedInfo();
    EXPECT_EQ(assembled(header),
              "x-qrn-smart-send-type: 2\r\nx-qrn-message-body-size: 2\r\nKeep: me\r\n");
    header.removeSmartDataInfo();
    header.removeBodyTruncatedInfo();
    header.removeBodyTruncatedInfo();
    EXPECT_EQ(assembled(header), "Keep: me\r\n");
}

} // namespace email_header_extensions_test
