// SPDX-License-Identifier: MIT
#include "tests/support/AllStrings.h"
#include "tests/support/CodecOracles.h"
#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_Util.h"

#include <map>

namespace base64_test {

namespace {

QByteArray encode(const QByteArray& data, int breakLines)
{
    return EMAIL_Util::encB64(data.constData(), static_cast<unsigned long>(data.size()),
                              breakLines);
}

constexpr unsigned long kUnset = 0xDEADBEEF;

QByteArray decode(const QByteArray& text, unsigned long& length)
{
    length = kUnset;
    return EMAIL_Util::decB64(text.constData(), &length);
}

struct EncodeRow
{
    const char* name;
    QByteArray data;
    int breakLines;
    QByteArray text;
};

class Base64Encode : public testing::TestWithParam<EncodeRow>
{
};

TEST_P(Base64Encode, InMemory)
{
    EXPECT_EQ(encode(GetParam().data, GetParam().breakLines), GetParam().text);
}

TEST_P(Base64Encode, ToFile)
{
    const auto& [name, data, breakLines, text] = GetParam();
    RecordingFile file;
    EXPECT_EQ(EMAIL_Util::encB64(data.constData(), static_cast<unsigned long>(data.size()), &file,
                                 breakLines),
              0);
    EXPECT_EQ(file.written(), text);
}

const QByteArray kFullLine = QByteArray("QUFB").repeated(19);

INSTANTIATE_TEST_SUITE_P(
    Rows, Base64Encode,
    testing::Values(
        EncodeRow{"nothing", "", 1, ""}, EncodeRow{"threeBytesBroken", "abc", 1, "YWJj\r\n"},
        EncodeRow{"threeBytes", "abc", 0, "YWJj"}, EncodeRow{"oneByte", "a", 0, "YQ=="},
        EncodeRow{"twoBytes", "ab", 0, "YWI="}, EncodeRow{"nonZeroBreaks", "ab", -7, "YWI=\r\n"},
        EncodeRow{"fullLine", QByteArray(57, 'A'), 1, kFullLine + "\r\n"},
        EncodeRow{"fullLineAndOne", QByteArray(58, 'A'), 1, kFullLine + "\r\nQQ==\r\n"},
        EncodeRow{"fullLineButOne", QByteArray(56, 'A'), 1, kFullLine.left(72) + "QUE=\r\n"},
        EncodeRow{"twoLines", QByteArray(114, 'A'), 1, (kFullLine + "\r\n").repeated(2)},
        EncodeRow{"unbroken", QByteArray(114, 'A'), 0, kFullLine.repeated(2)},
        EncodeRow{"everyBit", QByteArray::fromHex("fffefdfcfbfa00"), 0, "//79/Pv6AA=="}),
    [](const auto& row) { return row.param.name; });

TEST(Base64EncodeArguments, NullDataGivesNothing)
{
    EXPECT_EQ(EMAIL_Util::encB64(nullptr, 5, 1), "");
    RecordingFile file;
    EXPECT_EQ(EMAIL_Util::encB64(nullptr, 5, &file, 1), 0);
    EXPECT_EQ(file.written(), "");
}

TEST(Base64EncodeArguments, AResultThatFitsNoArrayIsEmpty)
{
    for (const unsigned long length : {~0UL, QCString::longestLength + 1UL})
        EXPECT_EQ(EMAIL_Util::encB64("abc", length, 1), "") << length;
}

struct DecodeRow
{
    const char* name;
    QByteArray text;
    QByteArray data;
};

class Base64Decode : public testing::TestWithParam<DecodeRow>
{
};

TEST_P(Base64Decode, InMemory)
{
    unsigned long length = 0;
    EXPECT_EQ(decode(GetParam().text, length), GetParam().data);
    EXPECT_EQ(length, static_cast<unsigned long>(GetParam().data.size()));
}

TEST_P(Base64Decode, ToFile)
{
    RecordingFile file;
    const QByteArray& text = GetParam().text;
    EXPECT_EQ(EMAIL_Util::decB64(text.constData(), static_cast<int>(text.size()), &file), 0);
    EXPECT_EQ(file.written(), GetParam().data);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Base64Decode,
    testing::Values(DecodeRow{"lineBreakInAGroup", "YW\r\nJj", "abc"},
                    DecodeRow{"incompleteGroup", "YWJ", ""}, DecodeRow{"oneCharacter", "Y", ""},
                    DecodeRow{"incompleteGroupAfterWhole", "YWJjYWJ", "abc"},
                    DecodeRow{"paddedGroupsInARow", "YQ==YQ==", "aa"},
                    DecodeRow{"onePad", "YWI=YWI=", "abab"}, DecodeRow{"foreignOnly", " \t*-_", ""},
                    DecodeRow{"foreignBetween", "-Y_W*J.j-", "abc"},
                    DecodeRow{"byte0xEBIsSkipped", "YW\xEBJj", "abc"},
                    DecodeRow{"byte0xECIsTheDigitA", "YW\xECj", "a`#"},
                    DecodeRow{"byte0xF0IsTheDigitA", "\xF0\xF0\xF0\xF0", QByteArray(3, '\0')},
                    DecodeRow{"byte0xFFIsTheDigitA", "YWJ\xFF", "ab\x40"},
                    DecodeRow{"padInThirdPlaceOnly", "YQ=Y", QByteArray("a\x10\x18")},
                    DecodeRow{"padInFirstPlace", "=Q==", QByteArray("\x01")},
                    DecodeRow{"padInSecondPlace", "Y===", QByteArray("\x64")},
                    DecodeRow{"sumTakenModulo256", "A/=A", QByteArray("\x03\x00\x00", 3)},
                    DecodeRow{"onlyPads", "====", QByteArray("\x04")},
                    DecodeRow{"padsThenMore", "====YWJj",
                              QByteArray("\x04"
                                         "abc")}),
    [](const auto& row) { return row.param.name; });

TEST(Base64DecodeArguments, MissingPointersAndEmptyTextLeaveTheLength)
{
    unsigned long length = kUnset;
    EXPECT_EQ(EMAIL_Util::decB64("YWJj", nullptr), "");
    EXPECT_EQ(EMAIL_Util::decB64(nullptr, &length), "");
    EXPECT_EQ(length, kUnset);
    EXPECT_EQ(EMAIL_Util::decB64("", &length), "");
    EXPECT_EQ(length, kUnset);
}

TEST(Base64DecodeArguments, MemoryFormEndsAtNulFileFormReadsOn)
{
    const QByteArray text("YW\0JjYWJj", 9);
    unsigned long length = 0;
    EXPECT_EQ(decode(text, length), "");
    EXPECT_EQ(length, 0UL);
    RecordingFile file;
    EXPECT_EQ(EMAIL_Util::decB64(text.constData(), 9, &file), 0);
    EXPECT_EQ(file.written(), "abcabc");
}

TEST(Base64DecodeArguments, FileFormReadsExactlyTheGivenLength)
{
    RecordingFile file;
    EXPECT_EQ(EMAIL_Util::decB64("YWJjYWJj", 5, &file), 0);
    EXPECT_EQ(EMAIL_Util::decB64("YWJj", 0, &file), 0);
    EXPECT_EQ(EMAIL_Util::decB64("YWJj", -1, &file), 0);
    EXPECT_EQ(EMAIL_Util::decB64(nullptr, 4, &file), 0);
    EXPECT_EQ(file.written(), "abc");
}

TEST(Base64DecodeArguments, MemoryFormNeverCallsTheCallback)
{
    int calls = 0;
    unsigned long length = 0;
    const QByteArray text = QByteArray("YWJj").repeated(20000);
    EMAIL_Util::decB64(text.constData(), &length, [&calls] { return ++calls, -1; });
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(length, 60000UL);
}

// A digit from either end of the alphabet, the pad, a byte to skip and one that only looks foreign.
TEST(Base64Exhaustive, ShortStrings)
{
    std::map<int, int> outcomes;
    forAllStrings("AQ/=\n*\xF0", 6, [&outcomes](const QByteArray& text) {
        unsigned long length = 0;
        const QByteArray data = decode(text, length);
        ++outcomes[length == kUnset ? -1 : static_cast<int>(length)];
        ASSERT_EQ(data, oracle::decodeBase64(text)) << testing::PrintToString(text);
    });
    const std::map<int, int> expected{{-1, 1}, {0, 36631}, {1, 4025}, {2, 16100}, {3, 80500}};
    EXPECT_EQ(outcomes, expected);
}

TEST(Base64Exhaustive, TwoByteInputs)
{
    for (int pair = 0; pair < 65536; ++pair) {
        const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
        const QByteArray data(bytes, 2);
        unsigned long length = 0;
        const QByteArray text = encode(data, 0);
        ASSERT_EQ(text, oracle::encodeBase64(data, false)) << pair;
        ASSERT_EQ(decode(text, length), data) << pair;
        const QByteArray asGroup = data + "Q/" + data + "/Q";
        const QByteArray upToNul(asGroup.constData());
        ASSERT_EQ(decode(asGroup, length), oracle::decodeBase64(upToNul)) << pair;
    }
}

TEST(Base64Exhaustive, EveryByteAtEveryLength)
{
    for (int byte = 0; byte < 256; ++byte) {
        for (int count = 0; count <= 60; ++count) {
            const QByteArray data(count, static_cast<char>(byte));
            ASSERT_EQ(encode(data, 1), oracle::encodeBase64(data, true)) << byte << ' ' << count;
            if (byte == 0)
                continue;
            unsigned long length = 0;
            ASSERT_EQ(decode(data, length), oracle::decodeBase64(data)) << byte << ' ' << count;
        }
    }
}

} // namespace

// Lines that are out of step with groups and with each other, in front of regular ones.
TEST(Base64AwkwardLines, GiveTheSameBytes)
{
    QByteArray raw(9999, '\0');
    for (int i = 0; i < raw.size(); ++i)
        raw[i] = static_cast<char>(i * 31 + i / 256);
    const QByteArray digits =
        EMAIL_Util::encB64(raw.constData(), static_cast<unsigned long>(raw.size()), 0);
    for (const int first : {1, 2, 3, 4, 9, 15, 16, 17, 60, 75, 77}) {
        for (const int other : {1, 9, 16, 40, 76}) {
            QByteArray text = digits.left(first) + "\r\n";
            for (int i = first; i < digits.size(); i += other)
                text += digits.mid(i, other) + "\r\n";
            unsigned long length = 0;
            EXPECT_EQ(EMAIL_Util::decB64(text.constData(), &length), raw) << first << ' ' << other;
        }
    }
}

} // namespace base64_test
