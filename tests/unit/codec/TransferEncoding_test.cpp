// SPDX-License-Identifier: MIT
#include "tests/support/AllStrings.h"
#include "tests/support/CodecOracles.h"
#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_Util.h"

#include <QMap>

namespace transfer_encoding_test {

namespace {

struct NameRow
{
    const char* label;
    const char* name;
    int expected;
};

class TransferEncodingName : public testing::TestWithParam<NameRow>
{
};

TEST_P(TransferEncodingName, IsRecognised)
{
    EXPECT_EQ(EMAIL_Util::cteStrToEnum(GetParam().name), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TransferEncodingName,
    testing::Values(NameRow{"sevenBit", "7bit", CTE_7BIT}, NameRow{"eightBit", "8bit", CTE_8BIT},
                    NameRow{"binary", "binary", CTE_BINARY},
                    NameRow{"quotedPrintable", "quoted-printable", CTE_QUOTED_PRINTABLE},
                    NameRow{"base64", "base64", CTE_BASE64},
                    NameRow{"anyCase", "Quoted-Printable", CTE_QUOTED_PRINTABLE},
                    NameRow{"decorated", " \"x-BASE64\" (comment)", CTE_BASE64},
                    NameRow{"unknown", "x-uuencode", CTE_UNKNOWN},
                    NameRow{"empty", "", CTE_UNKNOWN}, NameRow{"null", nullptr, CTE_UNKNOWN},
                    NameRow{"quotedPrintableFirst", "7bit base64 quoted-printable",
                            CTE_QUOTED_PRINTABLE},
                    NameRow{"sevenBitBeforeEightBit", "8bit 7bit", CTE_7BIT},
                    NameRow{"eightBitBeforeBase64", "base64 8bit", CTE_8BIT},
                    NameRow{"base64BeforeBinary", "binary base64", CTE_BASE64}),
    [](const auto& row) { return row.param.label; });

TEST(TransferEncodingNames, AreWritten)
{
    const QMap<int, QCString> expected{{-1, "7bit"},   {0, "7bit"},
                                       {1, "7bit"},    {2, "8bit"},
                                       {3, "binary"},  {4, "quoted-printable"},
                                       {5, "base64"},  {6, "7bit"},
                                       {1000, "7bit"}, {std::numeric_limits<int>::min(), "7bit"}};
    for (auto row = expected.begin(); row != expected.end(); ++row)
        EXPECT_EQ(EMAIL_Util::cteEnumToStr(row.key()), row.value()) << row.key();
}

struct GuessRow
{
    const char* name;
    QByteArray data;
    int expected;
};

class TransferEncodingGuess : public testing::TestWithParam<GuessRow>
{
};

TEST_P(TransferEncodingGuess, LooksAtTheFirst4096Bytes)
{
    const auto& [name, data, expected] = GetParam();
    EXPECT_EQ(EMAIL_Util::guessRightCTE(data), expected);
    EXPECT_EQ(EMAIL_Util::guessRightCTE(data.constData(), static_cast<int>(data.size())), expected);
}

QByteArray letters(int count)
{
    return QByteArray(count, 'x');
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TransferEncodingGuess,
    testing::Values(GuessRow{"letters", letters(100), 4}, GuessRow{"blanks", "a b c d e", 5},
                    GuessRow{"nothing", "", 4}, GuessRow{"oneEscape", " ", 5},
                    GuessRow{"oneTenth", letters(9) + " ", 4},
                    GuessRow{"moreThanOneTenth", letters(8) + " ", 5},
                    GuessRow{"twoOfTwenty", letters(18) + "  ", 4},
                    GuessRow{"twoOfNineteen", letters(17) + "  ", 5},
                    GuessRow{"binaryBehind4096", letters(4096) + QByteArray(90000, '\0'), 4},
                    GuessRow{"oneTenthOf4096", letters(3687) + QByteArray(409, '\xFF'), 4},
                    GuessRow{"moreThanOneTenthOf4096", letters(3686) + QByteArray(410, '\xFF'), 5},
                    GuessRow{"byteBehind4096", letters(3687) + QByteArray(410, '\xFF'), 4},
                    GuessRow{"lineEnds", QByteArray("abcdefg\r\n").repeated(10), 5},
                    GuessRow{"prose", "It was a bright cold day in April.", 5}),
    [](const auto& row) { return row.param.name; });

TEST(TransferEncodingGuesses, NullAndNegativeLengthsAreQuotedPrintable)
{
    EXPECT_EQ(EMAIL_Util::guessRightCTE(nullptr, 10), 4);
    EXPECT_EQ(EMAIL_Util::guessRightCTE(QByteArray()), 4);
    EXPECT_EQ(EMAIL_Util::guessRightCTE("   ", -1), 4);
}

struct DispatchRow
{
    const char* name;
    int encoding;
    QByteArray text;
};

const QByteArray kData("a=b\x00\xE9", 5);

class TransferEncodingDispatch : public testing::TestWithParam<DispatchRow>
{
};

TEST_P(TransferEncodingDispatch, EncodesInMemory)
{
    QByteArray out = "old";
    EMAIL_Util::encWithCTE(kData, out, GetParam().encoding);
    EXPECT_EQ(out, GetParam().text);
}

TEST_P(TransferEncodingDispatch, EncodesToFile)
{
    RecordingFile file;
    EXPECT_EQ(EMAIL_Util::encWithCTE(kData.constData(), 5, &file, GetParam().encoding), 0);
    EXPECT_EQ(file.written(), GetParam().text);
}

TEST_P(TransferEncodingDispatch, DecodesInMemory)
{
    const auto& [name, encoding, text] = GetParam();
    QByteArray out = "old";
    EMAIL_Util::decFromCTE(QCString::fromBytes(text), out, encoding);
    const bool isCopied = encoding != CTE_QUOTED_PRINTABLE && encoding != CTE_BASE64;
    const QByteArray lineEnd = encoding == CTE_QUOTED_PRINTABLE ? "\r\n" : "";
    EXPECT_EQ(out, isCopied ? QByteArray("a=b") : kData + lineEnd);
}

TEST_P(TransferEncodingDispatch, DecodesToFile)
{
    const auto& [name, encoding, text] = GetParam();
    RecordingFile file;
    EXPECT_EQ(
        EMAIL_Util::decFromCTE(text.constData(), static_cast<int>(text.size()), &file, encoding),
        0);
    const QByteArray lineEnd = encoding == CTE_QUOTED_PRINTABLE ? "\r\n" : "";
    EXPECT_EQ(file.written(), kData + lineEnd);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TransferEncodingDispatch,
    testing::Values(DispatchRow{"negative", -1, kData}, DispatchRow{"unknown", CTE_UNKNOWN, kData},
                    DispatchRow{"sevenBit", CTE_7BIT, kData},
                    DispatchRow{"eightBit", CTE_8BIT, kData},
                    DispatchRow{"binary", CTE_BINARY, kData},
                    DispatchRow{"quotedPrintable", CTE_QUOTED_PRINTABLE, "a=3Db=00=E9\r\n"},
                    DispatchRow{"base64", CTE_BASE64, "YT1iAOk=\r\n"},
                    DispatchRow{"tooLarge", 6, kData}),
    [](const auto& row) { return row.param.name; });

TEST(TransferEncodingDecode, InMemoryEndsAtNul)
{
    QByteArray out;
    const QCString text = QCString::fromBytes(QByteArray("YWJj\0YWJj", 9));
    EMAIL_Util::decFromCTE(text, out, CTE_BASE64);
    EXPECT_EQ(out, "abc");
    EMAIL_Util::decFromCTE(text, out, CTE_QUOTED_PRINTABLE);
    EXPECT_EQ(out, "YWJj");
    EMAIL_Util::decFromCTE(text, out, CTE_8BIT);
    EXPECT_EQ(out, "YWJj");
}

TEST(TransferEncodingDecode, InMemoryEndsAtNulWhereverItStands)
{
    const QByteArray text = (QByteArray("QUFB").repeated(19) + "\r\n").repeated(6);
    for (const int encoding : {CTE_BASE64, CTE_QUOTED_PRINTABLE, CTE_8BIT}) {
        for (int position = 0; position < text.size(); ++position) {
            QByteArray broken = text;
            broken[position] = '\0';
            QByteArray upToNul;
            QByteArray whole;
            EMAIL_Util::decFromCTE(QCString(text.left(position)), upToNul, encoding);
            EMAIL_Util::decFromCTE(QCString::fromBytes(broken), whole, encoding);
            ASSERT_EQ(whole, upToNul) << encoding << ' ' << position;
        }
    }
}

// The decoders are told that a NUL ends their text, instead of its end: the same in every place.
TEST(TransferEncodingDecode, InMemoryEndsAtNulInEveryShortString)
{
    forAllStrings(QByteArray("=\r\n4Q\0", 6), 6, [](const QByteArray& text) {
        const QByteArray upToNul(text.constData());
        QByteArray out;
        EMAIL_Util::decFromCTE(QCString::fromBytes(text), out, CTE_QUOTED_PRINTABLE);
        ASSERT_EQ(out, oracle::decodeQp(upToNul)) << testing::PrintToString(text);
        EMAIL_Util::decFromCTE(QCString::fromBytes(text), out, CTE_BASE64);
        ASSERT_EQ(out, oracle::decodeBase64(upToNul)) << testing::PrintToString(text);
    });
}

TEST(TransferEncodingDecode, AnEscapeCutByNulIsDropped)
{
    for (const QByteArray& end : {QByteArray("=\0A", 3), QByteArray("=4\0", 3)}) {
        QByteArray out;
        EMAIL_Util::decFromCTE(QCString::fromBytes("ab" + end + "cd"), out, CTE_QUOTED_PRINTABLE);
        EXPECT_EQ(out, "ab");
    }
}

TEST(TransferEncodingDecode, InMemoryReadsASliceOnly)
{
    QByteArray out;
    const QCString whole("--YWJj--");
    EMAIL_Util::decFromCTE(whole.mid(2, 4), out, CTE_BASE64);
    EXPECT_EQ(out, "abc");
    EMAIL_Util::decFromCTE(whole.mid(2, 4), out, CTE_UNKNOWN);
    EXPECT_EQ(out, "YWJj");
}

TEST(TransferEncodingDecode, InMemoryNeverCallsTheCallback)
{
    int calls = 0;
    QByteArray out;
    const QCString text(QByteArray(100000, 'A'));
    for (int encoding = 0; encoding <= 5; ++encoding)
        EMAIL_Util::decFromCTE(text, out, encoding, [&calls] { return ++calls, -1; });
    EXPECT_EQ(calls, 0);
}

TEST(TransferEncodingDecode, EmptyTextGivesNothing)
{
    for (int encoding = 0; encoding <= 5; ++encoding) {
        QByteArray out = "old";
        EMAIL_Util::decFromCTE(QCString(), out, encoding);
        EXPECT_EQ(out, "") << encoding;
    }
}

TEST(TransferEncodingEncode, OutputMayBeTheInput)
{
    QByteArray data = "abc";
    EMAIL_Util::encWithCTE(data, data, CTE_BASE64);
    EXPECT_EQ(data, "YWJj\r\n");
}

TEST(TransferEncodingEncode, ACopyDoesNotShareForeignMemory)
{
    char memory[] = "abc";
    QByteArray out;
    EMAIL_Util::encWithCTE(QByteArray::fromRawData(memory, 3), out, CTE_8BIT);
    memory[0] = 'X';
    EXPECT_EQ(out, "abc");
}

TEST(TransferEncodingStreams, RawDataHandsBackTheCallbacksValue)
{
    RecordingFile file;
    const QByteArray data = letters(100000);
    EXPECT_EQ(EMAIL_Util::decFromCTE(data.constData(), 100000, &file, CTE_8BIT, [] { return 7; }),
              7);
    for (const int encoding : {CTE_QUOTED_PRINTABLE, CTE_BASE64})
        EXPECT_EQ(
            EMAIL_Util::decFromCTE(data.constData(), 100000, &file, encoding, [] { return 7; }),
            -1);
    EXPECT_EQ(file.written(), "");
}

} // namespace

} // namespace transfer_encoding_test
