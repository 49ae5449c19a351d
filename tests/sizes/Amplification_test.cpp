// SPDX-License-Identifier: MIT
// What a short text may make of itself in memory: eight times its bytes and one MiB, beside the
// objects that stand for its addresses, parameters and parts.
#include "extra/MessageFindings.h"
#include "extra/MessageMeasure.h"
#include "tests/faults/CountingNew.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <functional>

namespace amplification_test {

namespace {

constexpr long kPerEntry = 150;
constexpr long kMegabyte = 1L << 20;

struct Row
{
    const char* name;
    QByteArray line;
    // Addresses or parameters.
    long entries;
    std::function<void(EMAIL_Header&)> read;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class Amplification : public testing::TestWithParam<Row>
{
};

QByteArray repeated(const char* start, const char* piece, int count)
{
    return start + QByteArray(piece).repeated(count);
}

QByteArray numbered(const QByteArray& start, int count, const char* end)
{
    QByteArray text = start;
    for (int i = 0; i < count; ++i)
        text += ';' + QByteArray::number(i) + end;
    return text;
}

void readDate(EMAIL_Header& header)
{
    header.getDate()->getTime();
}

void readType(EMAIL_Header& header)
{
    QCString name;
    header.getContentType()->getName(name);
}

void readDisposition(EMAIL_Header& header)
{
    header.getContentDisposition()->getFileName();
}

void readTo(EMAIL_Header& header)
{
    header.getTo();
}

} // namespace

TEST_P(Amplification, OfReadingAndWritingAField)
{
    const QCString text(GetParam().line + "\r\n");
    EMAIL_Header header(text, nullptr);
    header.parse();
    const long limit = 8L * text.length() + kMegabyte + GetParam().entries * kPerEntry;
    resetPeak();
    GetParam().read(header);
    EXPECT_LE(peakBytes(), limit) << "reading";
    resetPeak();
    header.assemble();
    EXPECT_LE(peakBytes(), limit) << "assembling";
}

// Each field is short; their sum is what counts.
TEST(AmplificationOfAMessage, OfATreeOfBareNames)
{
    constexpr int kParts = 200;
    const QByteArray field = numbered("Content-Type: a/b;v=" + QByteArray(2000, 'x'), 500, "");
    const QByteArray mail = "Content-Type: multipart/mixed; boundary=b\r\n\r\n" +
                            QByteArray("--b\r\n" + field + "\r\n\r\nx\r\n").repeated(kParts);
    const QCString text(mail);
    constexpr long kPerPart = 500;
    const long limit = 8L * text.length() + kMegabyte + kParts * (kPerPart + 500 * kPerEntry);
    resetPeak();
    EMAIL_Message message(text, nullptr);
    message.parse();
    ASSERT_EQ(message.assemble(nullptr), 0);
    EXPECT_LE(peakBytes(), limit);
    EXPECT_LE(message.getMessage().length(), 2L * text.length());
}

constexpr int kMillion = 1000000;

INSTANTIATE_TEST_SUITE_P(
    Rows, Amplification,
    testing::Values(
        Row{"date of a million numbers", repeated("Date:", " 1", kMillion), 0, readDate},
        Row{"clock of a million numbers", repeated("Date: 1 Jan 2002 1", ":1", kMillion), 0,
            readDate},
        Row{"parameters of a million pieces", repeated("Content-Type: a/b", ";c", kMillion), 1,
            readType},
        Row{"parameters of a million empty pieces", repeated("Content-Type: a/b", ";", kMillion), 1,
            readType},
        Row{"a million parameters", numbered("Content-Type: a/b", kMillion, "=1"), kMillion,
            readType},
        Row{"a million bare names", numbered("Content-Type: a/b;v=long", kMillion, ""),
            kMillion + 1, readType},
        Row{"bare names that share a long value",
            numbered("Content-Type: a/b;v=" + QByteArray(102400, 'x'), 21000, ""), 21001, readType},
        Row{"disposition of a million pieces", repeated("Content-Disposition: a", ";b=c", kMillion),
            0, readDisposition},
        Row{"a million addresses", repeated("To: a", ",a", kMillion), kMillion + 1, readTo},
        Row{"a million empty addresses", repeated("To: a", ",", kMillion), kMillion, readTo},
        Row{"a million members of a group", repeated("To: a:b", ",b", kMillion), kMillion + 1,
            readTo}));

namespace {

constexpr long kPerPart = 4000;

struct MessageRow
{
    const char* name;
    QByteArray mail;
    long parts;
    std::function<void(const QByteArray&)> read;
};

void PrintTo(const MessageRow& row, std::ostream* out)
{
    *out << row.name;
}

class AmplificationOnTop : public testing::TestWithParam<MessageRow>
{
};

void readMeasure(const QByteArray& mail)
{
    tarvomime::measureMessage(mail);
}

void readFindings(const QByteArray& mail)
{
    tarvomime::messageFindings(mail);
}

QByteArray withLabels(const QByteArray& name, int count)
{
    QByteArray mail = name + ':';
    for (int i = 0; i < count; ++i)
        mail += " =?x" + QByteArray::number(i) + "?q?a?=";
    return mail + "\n\nx\n";
}

QByteArray nest(int levels, const QByteArray& around)
{
    QByteArray mail;
    for (int i = 0; i < levels; ++i) {
        const QByteArray boundary = around + QByteArray::number(i) + around;
        mail += "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary + '\n';
    }
    return mail;
}

// Containers whose boundaries differ in case alone, and lines that almost match each of them.
QByteArray nearMisses(int levels, int lines)
{
    QByteArray mail;
    QByteArray ends;
    for (int i = 0; i < levels; ++i) {
        QByteArray boundary = "boundary";
        for (int letter = 0; letter < boundary.size(); ++letter) {
            if ((i >> letter & 1) != 0)
                boundary[letter] = char(boundary.at(letter) - 'a' + 'A');
        }
        mail += "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary + '\n';
        ends = "--" + boundary + "--\n" + ends;
    }
    return mail + '\n' + QByteArray("-boundary\n").repeated(lines) + ends;
}

} // namespace

TEST_P(AmplificationOnTop, OfReadingAMessage)
{
    const QByteArray& mail = GetParam().mail;
    resetPeak();
    GetParam().read(mail);
    EXPECT_LE(peakBytes(), 8L * long(mail.size()) + kMegabyte + GetParam().parts * kPerPart);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AmplificationOnTop,
    testing::Values(MessageRow{"measure of a long boundary",
                               "Content-Type: multipart/mixed; boundary=" +
                                   QByteArray(kMillion, 'b') + "\n\n",
                               1, readMeasure},
                    MessageRow{"measure of long boundaries that begin and end alike",
                               nest(1000, QByteArray(500, 'b')), 1000, readMeasure},
                    MessageRow{"findings of many labels below a long name",
                               withLabels('X' + QByteArray(100000, 'n'), 7000), 1, readFindings},
                    MessageRow{"findings of many lines that almost delimit", nearMisses(100, 5000),
                               100, readFindings}));

} // namespace amplification_test
