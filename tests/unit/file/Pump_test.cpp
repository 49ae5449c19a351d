// SPDX-License-Identifier: MIT
#include "utility/file/Pump.h"

#include "tests/support/AllStrings.h"
#include "tests/support/RandomText.h"
#include "tests/support/RecordingFile.h"
#include "tests/support/RowNames.h"
#include "tests/support/StoredFile.h"
#include "utility/codec/Base64.h"
#include "utility/codec/QuotedPrintable.h"

#include <algorithm>
#include <vector>

namespace pump_test {

// A codec whose input comes from a file, in blocks, beside the same codec that has all of it in
// memory: the same bytes, written and asked for at the same points.
namespace {

using namespace tarvomime;

constexpr int kBlock = 32768;

struct StreamRow
{
    const char* name;
    int (*run)(const BodyBytes& in, QFile* out, const ProgressCallback& callback);
    // Bytes of which each means something of its own, alone or cut from its neighbours.
    QByteArray alphabet;
    // What such text normally looks like.
    QByteArray filling;
};

void PrintTo(const StreamRow& row, std::ostream* out)
{
    *out << row.name;
}

template <bool breakLines>
int toBase64(const BodyBytes& in, QFile* out, const ProgressCallback&)
{
    return encodeBase64(in, out, breakLines);
}

template <bool breakLines>
int toQp(const BodyBytes& in, QFile* out, const ProgressCallback&)
{
    return encodeQp(in, out, breakLines);
}

const QByteArray base64Lines =
    (QByteArray("abcdefghijklmnopqrst").repeated(4).left(76) + "\r\n").repeated(1000);
const QByteArray prose = QByteArray("Some text, and = signs\r\n").repeated(4000);

// Output that is kept in memory, for tests of many small rows: what was written and, before each
// block that the callback was asked for, how much of it there was.
class KeptOutput : public QFile
{
public:
    KeptOutput() : QFile(QStringLiteral("/dev/null")) { open(QIODevice::WriteOnly); }

    std::vector<QByteArray> writes;
    std::vector<std::size_t> calls;

protected:
    qint64 writeData(const char* data, qint64 length) override
    {
        writes.emplace_back(data, static_cast<int>(length));
        return length;
    }
};

class CutInput : public testing::TestWithParam<StreamRow>
{
protected:
    static void run(const BodyBytes& in, KeptOutput& out)
    {
        ASSERT_EQ(
            GetParam().run(in, &out, [&] { return out.calls.push_back(out.writes.size()), 0; }), 0);
    }

    void expectSame(const QByteArray& in)
    {
        QFile stored(mStored.path());
        // Over what is there: cutting the file first would have the system write it out.
        ASSERT_TRUE(stored.open(QIODevice::ReadWrite) && stored.write('x' + in) == in.size() + 1);
        stored.close();
        KeptOutput ofFile;
        KeptOutput ofMemory;
        const int length = static_cast<int>(in.size());
        run(BodyBytes(mStored.path(), 1, length), ofFile);
        run(BodyBytes(in.constData(), length), ofMemory);
        // Whole outputs would be printed on a difference.
        ASSERT_TRUE(ofFile.writes == ofMemory.writes) << testing::PrintToString(in.right(40));
        ASSERT_EQ(ofFile.calls, ofMemory.calls) << testing::PrintToString(in.right(40));
    }

private:
    StoredFile mStored{QByteArray()};
};

} // namespace

TEST_P(CutInput, ThroughEveryShortText)
{
    forAllStrings(GetParam().alphabet, 4, [&](const QByteArray& text) {
        for (int inFront = 0; inFront < text.size() && !HasFatalFailure(); ++inFront)
            expectSame(GetParam().filling.left(kBlock - inFront) + text + "AA");
    });
}

TEST_P(CutInput, AtEveryPlaceOfALine)
{
    for (int shift = 0; shift <= 156; ++shift)
        expectSame(QByteArray(shift, 'A') + GetParam().filling.left(2 * kBlock));
}

TEST_P(CutInput, BlocksWithoutAnythingButWhatIsSkipped)
{
    for (const char* nothing : {" ", "\r\n", "=\r\n", "=", "\r", "\xE9"}) {
        const QByteArray block = QByteArray(nothing).repeated(kBlock);
        for (const char* start : {"", "Q", "QU", "QUJ", "=", "=4"})
            expectSame(start + block + "=41JDQUJD" + block + "ABCD");
    }
}

TEST_P(CutInput, RandomTexts)
{
    std::vector<QByteArray> pieces{GetParam().filling.left(kBlock), GetParam().filling.left(1001)};
    for (const char c : GetParam().alphabet)
        pieces.insert(pieces.end(), {QByteArray(1, c), QByteArray(77, c), QByteArray(kBlock, c)});
    RandomText texts(20261121, pieces);
    for (int round = 0; round < 60 && !HasFatalFailure(); ++round) {
        SCOPED_TRACE(round);
        expectSame(texts.next(30));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Codecs, CutInput,
    testing::Values(StreamRow{"encode base64", toBase64<true>, "a\xFF", prose},
                    StreamRow{"encode base64 unbroken", toBase64<false>, "a\xFF", prose},
                    StreamRow{"decode base64", decodeBase64, "AQ=\r\n", base64Lines},
                    StreamRow{"encode quoted-printable", toQp<true>, "a =\r\n", prose},
                    StreamRow{"encode quoted-printable unbroken", toQp<false>, "a =\r", prose},
                    StreamRow{"decode quoted-printable", decodeQp, "=4A\r\n", prose},
                    StreamRow{"copy", writeRawData, "a", prose}),
    rowName<StreamRow>);

namespace {

struct EndlessCodec
{
    static void take(std::string_view) {}
    static std::string_view rest() { return {}; }
    static bool isEnded() { return false; }
    static char* run(char* next, char* limit) { return std::fill_n(next, limit - next, 'x'); }
    static char* finish(char* next) { return next; }
};

} // namespace

TEST(Pump, GivesUpWhatIsLongerThanItsRoom)
{
    EXPECT_EQ(runInMemory(EndlessCodec(), BodyBytes("a", 1), 100), std::nullopt);
}

// Nothing of a text is decoded that a file does not hold any more.
TEST(Pump, GivesUpAFileThatIsCutShort)
{
    const StoredFile stored(base64Lines.left(70000));
    const BodyBytes bytes(stored.path(), 0, 70000);
    RecordingFile out;
    EXPECT_EQ(decodeBase64(bytes, &out, [&stored] { return stored.cutTo(0), 0; }), -1);
    EXPECT_EQ(out.writes().size(), 1U);
    EXPECT_EQ(decodeBase64(bytes, NulByte::IsData), std::nullopt);
}

// What lies behind the NUL is not looked at: it need not be there any more.
TEST(Pump, ReadsNoFurtherThanTheEndOfTheText)
{
    QByteArray text = base64Lines.left(70000);
    text[20000] = '\0';
    const StoredFile stored(text);
    const BodyBytes bytes(stored.path(), 0, 70000);
    stored.cutTo(kBlock);
    using InMemory = std::optional<QByteArray> (*)(const BodyBytes&, NulByte);
    for (const InMemory decode : {InMemory(decodeBase64), InMemory(decodeQp)}) {
        const auto decoded = decode(bytes, NulByte::EndsText);
        ASSERT_TRUE(decoded.has_value());
        EXPECT_TRUE(decoded == decode(BodyBytes(text.constData(), 70000), NulByte::EndsText));
        EXPECT_FALSE(decode(bytes, NulByte::IsData).has_value());
    }
}

} // namespace pump_test
