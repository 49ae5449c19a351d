// SPDX-License-Identifier: MIT
#include "extra/MboxReader.h"

#include <QBuffer>
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace mbox_reader_test {

using namespace tarvomime;

namespace {

struct MboxRow
{
    const char* name;
    std::string bytes;
    std::vector<std::string> messages;
    bool isMbox = true;
    bool believeLengths = false;
};

class Mbox : public testing::TestWithParam<MboxRow>
{
};

const std::string kFrom = "From a@b Mon Jun  3 10:15:00 2024\n";

// A device that cannot seek and gives out little at a time.
class Pipe : public QIODevice
{
public:
    explicit Pipe(const QByteArray& bytes) : mBytes(bytes) { open(ReadOnly | Unbuffered); }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 most) override
    {
        const QByteArray piece = mBytes.left(int(qMin<qint64>(most, 7)));
        mBytes.remove(0, int(piece.size()));
        std::copy(piece.begin(), piece.end(), data);
        return piece.size();
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray mBytes;
};

// Two texts and zeros between them: reading the hole of a file so long would fill the system's
// cache.
class Hollow : public QIODevice
{
public:
    Hollow(const QByteArray& start, qint64 far, const QByteArray& end)
        : mStart(start), mFar(far), mEnd(end)
    {
        open(ReadOnly | Unbuffered);
    }
    qint64 size() const override { return mFar + mEnd.size(); }
    bool seek(qint64 position) override
    {
        mAt = position;
        return QIODevice::seek(position);
    }

protected:
    qint64 readData(char* data, qint64 most) override
    {
        const bool isHole = mAt >= mStart.size() && mAt < mFar;
        const qint64 end = isHole ? mFar : mAt < mFar ? mStart.size() : size();
        const qint64 count = qMin(most, end - mAt);
        if (isHole)
            std::fill_n(data, count, '\0');
        else
            std::copy_n(mAt < mFar ? mStart.constData() + mAt : mEnd.constData() + (mAt - mFar),
                        count, data);
        mAt += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray mStart;
    qint64 mFar;
    QByteArray mEnd;
    qint64 mAt = 0;
};

std::vector<std::string> messagesOf(QIODevice& device, const QByteArray& bytes, bool believe)
{
    MboxReader reader(device, believe);
    std::vector<std::string> messages;
    MboxMessage message;
    while (reader.next(message))
        messages.push_back(bytes.mid(int(message.offset), int(message.length)).toStdString());
    EXPECT_EQ(reader.problem(), QString());
    return messages;
}

} // namespace

TEST_P(Mbox, IsCut)
{
    QByteArray bytes = QByteArray::fromStdString(GetParam().bytes);
    QBuffer buffer(&bytes);
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    EXPECT_EQ(messagesOf(buffer, bytes, GetParam().believeLengths), GetParam().messages);
    buffer.seek(0);
    EXPECT_EQ(MboxReader(buffer).isMbox(), GetParam().isMbox);
}

TEST_P(Mbox, IsCutOutOfAPipe)
{
    const QByteArray bytes = QByteArray::fromStdString(GetParam().bytes);
    Pipe pipe(bytes);
    const std::vector<std::string> cut = messagesOf(pipe, bytes, false);
    // Lengths are not believed where the reader cannot look ahead.
    if (!GetParam().believeLengths) {
        EXPECT_EQ(cut, GetParam().messages);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Extra, Mbox,
    testing::Values(
        MboxRow{"Empty", "", {}, false},
        MboxRow{"OneMessageFile",
                "A: 1\n\nx\n\nFrom here to 10:15\n",
                {"A: 1\n\nx\n\nFrom here to 10:15\n"},
                false},
        MboxRow{"One", kFrom + "A: 1\n\nx\n", {"A: 1\n\nx\n"}},
        MboxRow{"Two",
                kFrom + "A: 1\n\nx\n\n" + kFrom + "A: 2\n\ny\n\n",
                {"A: 1\n\nx\n", "A: 2\n\ny\n"}},
        MboxRow{"CrLf",
                "From a 10:15\r\nA: 1\r\n\r\nx\r\n\r\nFrom b 10:16\r\nA: 2\r\n",
                {"A: 1\r\n\r\nx\r\n", "A: 2\r\n"}},
        MboxRow{"FromInsideAParagraph",
                kFrom + "A: 1\n\nx\n" + kFrom + "y\n",
                {"A: 1\n\nx\n" + kFrom + "y\n"}},
        MboxRow{"FromWithoutATime",
                kFrom + "A: 1\n\nFrom my side, fine\n\nFrom me: yes\n",
                {"A: 1\n\nFrom my side, fine\n\nFrom me: yes\n"}},
        MboxRow{"QuotedFrom", kFrom + "A: 1\n\n>From a 10:15\n", {"A: 1\n\n>From a 10:15\n"}},
        MboxRow{"NothingBehindTheSeparator", kFrom, {""}},
        MboxRow{"SeparatorWithoutLineEnd", "From a 10:15", {""}},
        MboxRow{"TimeAtTheEnd", "From a 1:1", {"From a 1:1"}, false},
        MboxRow{"LongLines",
                kFrom + "A: " + std::string(3 << 20, 'x') + "\n\ny\n\n" + kFrom + "B: 2\n",
                {"A: " + std::string(3 << 20, 'x') + "\n\ny\n", "B: 2\n"}},
        MboxRow{"LengthBelieved",
                kFrom + "Content-Length: 37\n\n\n" + kFrom + "y\n\n\n" + kFrom + "B: 2\n",
                {"Content-Length: 37\n\n\n" + kFrom + "y\n\n", "B: 2\n"},
                true,
                true},
        MboxRow{"LengthThatLies",
                kFrom + "Content-Length: 9\n\nx\n\n" + kFrom + "B: 2\n",
                {"Content-Length: 9\n\nx\n", "B: 2\n"},
                true,
                true},
        MboxRow{"LengthBeyondTheEnd",
                kFrom + "Content-Length: 99999999999999\n\nx\n\n" + kFrom + "B: 2\n",
                {"Content-Length: 99999999999999\n\nx\n", "B: 2\n"},
                true,
                true}),
    [](const auto& row) { return std::string(row.param.name); });

namespace {

struct QuotingRow
{
    const char* name;
    QByteArray stored;
    QByteArray asNone;
    QByteArray asFromLines;
    QByteArray asQuotedFromLines;
};

class MboxQuotes : public testing::TestWithParam<QuotingRow>
{
};

} // namespace

TEST_P(MboxQuotes, AreUndone)
{
    const QuotingRow& row = GetParam();
    EXPECT_EQ(unquotedMboxMessage(row.stored, MboxQuoting::None), row.asNone);
    EXPECT_EQ(unquotedMboxMessage(row.stored, MboxQuoting::FromLines), row.asFromLines);
    EXPECT_EQ(unquotedMboxMessage(row.stored, MboxQuoting::QuotedFromLines), row.asQuotedFromLines);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, MboxQuotes,
    testing::Values(
        QuotingRow{"Nothing", "", "", "", ""},
        QuotingRow{"Once", ">From a\n", ">From a\n", "From a\n", "From a\n"},
        QuotingRow{"Twice", ">>From a\n", ">>From a\n", ">>From a\n", ">From a\n"},
        QuotingRow{"AtTheEnd", "x\n>From a", "x\n>From a", "x\nFrom a", "x\nFrom a"},
        QuotingRow{"InALine", "x >From a\n", "x >From a\n", "x >From a\n", "x >From a\n"},
        QuotingRow{"Several", ">From a\n>\nb\n>>From c\n> From d\n>From e",
                   ">From a\n>\nb\n>>From c\n> From d\n>From e",
                   "From a\n>\nb\n>>From c\n> From d\nFrom e",
                   "From a\n>\nb\n>From c\n> From d\nFrom e"},
        QuotingRow{"AnotherWord", ">Frome a\n", ">Frome a\n", ">Frome a\n", ">Frome a\n"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(MboxWithoutQuotes, IsNotCopied)
{
    const QByteArray stored("a\n> From b\n");
    EXPECT_EQ(unquotedMboxMessage(stored, MboxQuoting::QuotedFromLines).constData(),
              stored.constData());
}

TEST(MboxAboveTwoGigabytes, IsCut)
{
    const qint64 far = (qint64(1) << 31) + 5;
    Hollow file(QByteArray::fromStdString(kFrom + "A: 1\n\n"), far,
                QByteArray::fromStdString("\n\n" + kFrom + "B: 2\n\ny\n"));
    MboxReader reader(file);
    MboxMessage message;
    ASSERT_TRUE(reader.next(message));
    EXPECT_FALSE(readMboxMessage(file, message));
    ASSERT_TRUE(reader.next(message));
    EXPECT_EQ(message.offset, far + 2 + qint64(kFrom.size()));
    EXPECT_EQ(readMboxMessage(file, message).valueOr(""), "B: 2\n\ny\n");
    EXPECT_FALSE(reader.next(message));
}

} // namespace mbox_reader_test
