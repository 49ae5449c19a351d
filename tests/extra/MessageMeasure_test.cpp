// SPDX-License-Identifier: MIT
#include "extra/MessageMeasure.h"

#include "extra/MessageContent.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

#include <QDirIterator>
#include <gtest/gtest.h>

namespace message_measure_test {

using namespace tarvomime;

namespace {

struct MeasureRow
{
    const char* name;
    QByteArray mail;
    int depth;
    int parts;
    int fields;
    int longestLine;
};

class Measure : public testing::TestWithParam<MeasureRow>
{
};

QByteArray nest(int levels)
{
    QByteArray mail;
    for (int i = 0; i < levels; ++i) {
        const QByteArray boundary = "b" + QByteArray::number(i) + "x";
        mail += "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary + '\n';
    }
    return mail;
}

} // namespace

TEST_P(Measure, IsTaken)
{
    const MessageMeasure measure = measureMessage(GetParam().mail);
    EXPECT_EQ(measure.depth, GetParam().depth);
    EXPECT_EQ(measure.parts, GetParam().parts);
    EXPECT_EQ(measure.fields, GetParam().fields);
    EXPECT_EQ(measure.longestLine, GetParam().longestLine);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, Measure,
    testing::Values(
        MeasureRow{"Nothing", "", 0, 1, 0, 0}, MeasureRow{"Text", "A: b\n\nHello\n", 0, 1, 1, 5},
        MeasureRow{"CrLf", "A: b\r\n\r\nHello\r\n", 0, 1, 1, 5},
        MeasureRow{"Folded", "A: b\n c\nD: e\n\n", 0, 1, 2, 4},
        MeasureRow{"BlankInFront",
                   " Content-Type: multipart/mixed; boundary=b\n\n--b\nA: 1\n\nx\n--b--\n", 1, 2, 2,
                   42},
        MeasureRow{"LongLine", "A: b\n\n" + QByteArray(5000, 'x'), 0, 1, 1, 5000},
        MeasureRow{
            "Parts",
            "Content-Type: multipart/mixed; boundary=b\n\n--b\nA: 1\n\nx\n--b\n\nB: 2\n\n--b--\n",
            1, 3, 3, 41},
        MeasureRow{
            "Epilogue",
            "Content-Type: multipart/mixed; boundary=b\n\n--b\nA: 1\n\nx\n--b--\n--b\nB: 2\n", 1, 2,
            2, 41},
        MeasureRow{"Enclosed", "Content-Type: message/rfc822\n\nA: b\nC: d\n\n", 1, 2, 3, 28},
        MeasureRow{"EnclosedTwice",
                   "Content-Type: message/rfc822\n\nContent-Type: message/rfc822\n\nA: b\n", 2, 3,
                   3, 28},
        MeasureRow{"Nest", nest(1000), 1000, 1001, 1000, 45},
        MeasureRow{"BoundaryThatBeginsLikeAnother",
                   "Content-Type: multipart/mixed; boundary=b\n\n--b\n"
                   "Content-Type: multipart/mixed; boundary=bc\n\n--bc\n\n--b--\n",
                   1, 3, 2, 42}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(MeasureOfBase64, IsNeverTooLittle)
{
    const QByteArray mail =
        "Content-Transfer-Encoding: base64\n\n" + QByteArray(3000, 'x').toBase64();
    const MessageMeasure measure = measureMessage(mail);
    EXPECT_GE(measure.decodedSize, 3000);
    EXPECT_LE(measure.decodedSize, 3100);
}

// Hours where a line is compared with each open boundary.
TEST(MeasureOfADeepNest, IsTakenInLinearTime)
{
    const QByteArray mail =
        nest(100000) + QByteArray("--b").repeated(100000) + QByteArray("--b9\n").repeated(100000);
    EXPECT_GE(measureMessage(mail).depth, 100000);
}

TEST(MeasureOfRealMail, IsNeverLessThanWhatParsingMakes)
{
    if (!QDir(TARVOMIME_CORPUS_DIR).exists())
        GTEST_SKIP() << "no collection of real messages at " TARVOMIME_CORPUS_DIR;
    QDirIterator files(TARVOMIME_CORPUS_DIR, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        const EMAIL_MIME message(bytes);
        const MessageMeasure measure = measureMessage(bytes);
        EXPECT_GE(measure.parts, readContent(*message.mMessage).parts.size())
            << file.fileName().toStdString();
    }
}

} // namespace message_measure_test
