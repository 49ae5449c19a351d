// SPDX-License-Identifier: MIT
#include "extra/HeaderValue.h"

#include <gtest/gtest.h>

namespace header_value_test {

using namespace tarvomime;

namespace {

struct ValueRow
{
    const char* name;
    QString value;
    // Empty where it may be stored.
    QString reason;
};

class HeaderValue : public testing::TestWithParam<ValueRow>
{
};

struct RawValueRow
{
    const char* name;
    QByteArray value;
    QString reason;
};

class RawHeaderValue : public testing::TestWithParam<RawValueRow>
{
};

} // namespace

TEST_P(HeaderValue, IsChecked)
{
    const Result<void> checked = checkHeaderValue(GetParam().value);
    EXPECT_EQ(bool(checked), GetParam().reason.isEmpty());
    EXPECT_EQ(checked.reason(), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, HeaderValue,
    testing::Values(ValueRow{"Empty", "", ""}, ValueRow{"Text", "Größe 😀\t!", ""},
                    ValueRow{"SecondField", "a\r\nBcc: b@c.example", "it holds a line break"},
                    ValueRow{"LoneCr", "a\rb", "it holds a line break"},
                    ValueRow{"LineSeparator", QString(QChar(0x2028)), "it holds a line break"},
                    ValueRow{"Nul", QString(QChar(0)), "it holds a NUL"},
                    ValueRow{"Escape", "\x1B[31m", "it holds a control character"},
                    ValueRow{"C1", QString(QChar(0x9B)), "it holds a control character"},
                    ValueRow{"HalfACharacter", QString(QChar(0xD83D)),
                             "it holds half a character"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_P(RawHeaderValue, IsChecked)
{
    const Result<void> checked = checkRawHeaderValue(GetParam().value);
    EXPECT_EQ(bool(checked), GetParam().reason.isEmpty());
    EXPECT_EQ(checked.reason(), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, RawHeaderValue,
    testing::Values(RawValueRow{"Empty", "", ""}, RawValueRow{"Text", "a b", ""},
                    RawValueRow{"Folded", "a\r\n\tb\n c", ""},
                    RawValueRow{"SecondField", "a\r\nBcc: b", "a line break would end the field"},
                    RawValueRow{"LineEndAtTheEnd", "a\r\n", "a line break would end the field"},
                    RawValueRow{"LineOfBlanks", "a\r\n \r\n b",
                                "a line of blanks may be taken for the end of the header"},
                    RawValueRow{"LoneCr", "a\rb", "it holds a control character"},
                    RawValueRow{"Nul", QByteArray("a\0b", 3), "it holds a NUL"},
                    RawValueRow{"EightBit", "é", "it holds 8-bit bytes"},
                    RawValueRow{"LongLine", QByteArray(999, 'x'),
                                "a line is longer than 998 bytes"},
                    RawValueRow{"LongestLine", QByteArray(998, 'x'), ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(HeaderName, IsChecked)
{
    EXPECT_TRUE(checkHeaderName("X-Mailer"));
    for (const QByteArray& name : {QByteArray(), QByteArray("a b"), QByteArray("a:"),
                                   QByteArray("é"), QByteArray("a\n"), QByteArray(201, 'x')})
        EXPECT_FALSE(checkHeaderName(name)) << name.toStdString();
}

TEST(HeaderValue, IsWritten)
{
    const QByteArray words("0123456789 ");
    EXPECT_EQ(QByteArray(writeHeaderValue("plain, (as) it \"is\"").valueOr({})),
              "plain, (as) it \"is\"");
    EXPECT_EQ(QByteArray(writeHeaderValue("").valueOr("x")), "");
    const QByteArray folded = writeHeaderValue(words.repeated(200).trimmed()).valueOr({});
    EXPECT_TRUE(checkRawHeaderValue(folded)) << folded.constData();
    EXPECT_TRUE(folded.startsWith(words.repeated(4) + "0123456789\r\n 0123456789 "));
    EXPECT_EQ(QByteArray(folded).replace("\r\n", ""), words.repeated(200).trimmed());
    const QByteArray encoded =
        writeHeaderValue(QString::fromUtf8("Grüße ").repeated(50)).valueOr({});
    EXPECT_TRUE(checkRawHeaderValue(encoded)) << encoded.constData();
    EXPECT_EQ(writeHeaderValue("a\nb").reason(), "it holds a line break");
    EXPECT_EQ(writeHeaderValue(QString(999, 'a')).reason(), "a line is longer than 998 bytes");
}

} // namespace header_value_test
