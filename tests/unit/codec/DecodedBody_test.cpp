// SPDX-License-Identifier: MIT
#include "utility/codec/DecodedBody.h"
#include "utility/codec/TransferEncoding.h"

#include "tests/support/RecordingFile.h"
#include "tests/support/RowNames.h"
#include "tests/support/StoredFile.h"

namespace decoded_body_test {

namespace {

using namespace tarvomime;

struct Row
{
    const char* name;
    QByteArray stored;
    int encoding;
    int charset;
    int fallback;
    const char* text;
    // What is written of a body in memory and of one in a file.
    QByteArray inMemory;
    QByteArray inFile;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

const Row rows[] = {
    {"Plain", "abc", CTE_7BIT, CHARSET_UTF_8, 0, "abc", "abc", "abc"},
    {"Base64", "w6Q=", CTE_BASE64, CHARSET_UTF_8, 0, "\u00e4", "\xC3\xA4", "\xC3\xA4"},
    {"QuotedPrintable", "=E4", CTE_QUOTED_PRINTABLE, CHARSET_ISO_8859_1, 0, "\u00e4", "\xE4",
     "\xE4"},
    {"FallbackOnlyWhereNoneIsNamed", "\xE4", CTE_8BIT, CHARSET_UNKNOWN, CHARSET_ISO_8859_1,
     "\u00e4", "\xE4", "\xE4"},
    {"EndsAtNulInMemory", QByteArray("a\0b", 3), CTE_8BIT, CHARSET_UTF_8, 0, "a", "a",
     QByteArray("a\0b", 3)},
    {"NothingDecodedLeavesTheText", "####", CTE_BASE64, CHARSET_UTF_8, 0, "before", "", ""},
};

class DecodedBody : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(DecodedBody, GivesTheSameTextFromMemoryAndFile)
{
    const Row& row = GetParam();
    const StoredFile file(row.stored);
    const int size = int(row.stored.size());
    for (const bool inFile : {false, true}) {
        QString text = QStringLiteral("before");
        const BodyBytes body =
            inFile ? BodyBytes(file.path(), 0, size) : BodyBytes(row.stored.constData(), size);
        EXPECT_EQ(decodeText(body, row.encoding, row.charset, row.fallback, text), 0);
        EXPECT_EQ(text, QString::fromUtf8(row.text)) << (inFile ? "file" : "memory");
    }
}

TEST_P(DecodedBody, WritesItsBytes)
{
    const Row& row = GetParam();
    const StoredFile file(row.stored);
    const int size = int(row.stored.size());
    RecordingFile fromMemory;
    RecordingFile fromFile;
    EXPECT_EQ(writeDecoded(BodyBytes(row.stored.constData(), size), row.encoding, &fromMemory, {}),
              0);
    EXPECT_EQ(writeDecoded(BodyBytes(file.path(), 0, size), row.encoding, &fromFile, {}), 0);
    EXPECT_EQ(fromMemory.written(), row.inMemory);
    EXPECT_EQ(fromFile.written(), row.inFile);
}

INSTANTIATE_TEST_SUITE_P(Rows, DecodedBody, testing::ValuesIn(rows), rowName<Row>);

TEST(DecodedBodyOfAMissingFile, IsRefused)
{
    const StoredFile file("abc");
    QString text = QStringLiteral("before");
    RecordingFile out;
    const auto missing = [&] { return BodyBytes(file.missingPath(), 0, 3); };
    EXPECT_EQ(decodeText(missing(), CTE_7BIT, CHARSET_UTF_8, 0, text), -1);
    EXPECT_EQ(writeDecoded(missing(), CTE_7BIT, &out, {}), -1);
    EXPECT_EQ(text, QStringLiteral("before"));
}

} // namespace decoded_body_test
